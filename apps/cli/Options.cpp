#include "apps/cli/Options.h"

#include "corvane/platform/Numbers.h"

#include "apps/cli/WrongUse.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <fmt/core.h>

#include <algorithm>
#include <string_view>

namespace corvane::cli {

namespace {

constexpr std::size_t kDescriptionColumn = 30;

bool isOption(std::string_view word) { return word.size() > 1 && word.front() == '-'; }
bool isHelp(std::string_view word) { return word == "--help" || word == "-h"; }

// What goes to CLI11 and what does not. Operands do not: they may be any bytes, and CLI11 takes "[a,b]" for a list and
// "{}" for an empty one. A value does as a word of its own: CLI11 lets "--title=" swallow the word behind it.
class Sorter {
public:
    explicit Sorter(std::function<bool(const std::string&)> takesValue) : takesValue_(std::move(takesValue)) {}

    Options::Said said;
    std::vector<std::string> options;
    std::string withoutValue; // an option with which the words end although it needs a value; "" when there is none

    void sort(const std::vector<std::string>& words) {
        auto word = words.begin();
        for (; word != words.end() && *word != "--"; ++word) {
            if (!isOption(*word)) {
                said.operands.push_back(*word);
            } else if (isHelp(*word)) {
                said.wantsHelp = true;
            } else if (!sortJoined(*word)) {
                options.push_back(*word);
                if (!takesValue_(*word)) continue;
                if (word + 1 == words.end()) {
                    withoutValue = *word;
                    break;
                }
                options.push_back(*++word);
            }
        }
        if (word != words.end()) said.operands.insert(said.operands.end(), word + 1, words.end());
    }

private:
    // "--name=value"
    bool sortJoined(const std::string& word) {
        const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
        if (equals == std::string::npos || !takesValue_(word.substr(0, equals))) return false;
        options.push_back(word.substr(0, equals));
        options.push_back(word.substr(equals + 1));
        return true;
    }

    std::function<bool(const std::string&)> takesValue_;
};

// CLI11's "--name: At Most 1 required but received 2" and "name was given a disallowed flag override".
std::string sentenceOf(const CLI::ArgumentMismatch& error) {
    const std::string text = error.what();
    if (text.find("flag override") != std::string::npos) {
        return fmt::format("--{} takes no value", text.substr(0, text.find(' ')));
    }
    return fmt::format("{} may be given only once", text.substr(0, text.find(':')));
}

} // namespace

struct Options::Parser {
    CLI::App app;
    std::string group = "Options";
};

Options::Options() : parser_(std::make_unique<Parser>()) {
    parser_->app.set_help_flag("-h,--help", "Print this help and exit");
}

Options::~Options() = default;

void Options::addFlag(const char* names, bool& isSet, const char* description) {
    parser_->app.add_flag(names, isSet, description)->disable_flag_override()->group(parser_->group);
}

void Options::addText(const char* names, const char* valueName, std::string& text, const char* description) {
    addValue(
        names, valueName, [&text](const std::string& given) { text = given; }, description);
}

void Options::addValue(const char* names, const char* valueName, Take take, const char* description) {
    const std::string name = std::string_view(names).find("--") == 0 ? names : std::strchr(names, ',') + 1;
    const auto store = [take = std::move(take), name](const std::string& text) {
        try {
            take(text);
        } catch (const WrongUse& wrong) {
            throw WrongUse(fmt::format("{}: {}", name, wrong.what()));
        }
    };
    parser_->app.add_option_function<std::string>(names, store, description)
        ->type_name(valueName)
        ->group(parser_->group);
}

void Options::addNumber(const char* names, unsigned& number, unsigned least, unsigned most, const char* description) {
    const auto take = [&number, least, most](const std::string& text) {
        const auto given = parseNumber<unsigned>(text);
        if (!given || *given < least || *given > most) {
            throw WrongUse(fmt::format("\"{}\" is not a number from {} to {}", text, least, most));
        }
        number = *given;
    };
    addValue(names, "N", take, description);
}

void Options::addWord(const char* names, const std::vector<std::string>& words,
                      std::function<void(std::size_t place)> take, const char* description) {
    std::string all;
    for (const std::string& word : words) all.append(all.empty() ? "" : "|").append(word);
    const auto choose = [words, all, take = std::move(take)](const std::string& text) {
        const auto found = std::find(words.begin(), words.end(), text);
        if (found == words.end()) throw WrongUse(fmt::format("\"{}\" is not one of {}", text, all));
        take(static_cast<std::size_t>(found - words.begin()));
    };
    addValue(names, all.c_str(), choose, description);
}

void Options::startGroup(const char* heading) { parser_->group = heading; }

Options::Said Options::take(const std::vector<std::string>& words) {
    Sorter sorter([this](const std::string& name) { return takesValue(name); });
    sorter.sort(words);
    if (sorter.said.wantsHelp) return std::move(sorter.said);
    if (!sorter.withoutValue.empty()) throw WrongUse(fmt::format("{} needs a value", sorter.withoutValue));
    parse(std::move(sorter.options));
    return std::move(sorter.said);
}

bool Options::takesValue(const std::string& name) const {
    const CLI::Option* option = parser_->app.get_option_no_throw(name);
    return option != nullptr && option->get_items_expected_max() > 0;
}

void Options::parse(std::vector<std::string> words) {
    try {
        std::reverse(words.begin(), words.end()); // CLI11 takes them from the back
        parser_->app.parse(std::move(words));
    } catch (const CLI::ExtrasError&) {
        throw WrongUse(fmt::format("There is no option \"{}\"", parser_->app.remaining().front()));
    } catch (const CLI::ArgumentMismatch& error) {
        throw WrongUse(sentenceOf(error));
    } catch (const CLI::ParseError& error) {
        throw WrongUse(error.what());
    }
}

std::string Options::help() const {
    CLI::Formatter formatter;
    formatter.column_width(kDescriptionColumn);
    std::string text = formatter.make_groups(&parser_->app, CLI::AppFormatMode::Normal);
    constexpr std::string_view kTwoEmptyLines = "\n\n\n"; // what CLI11 puts between groups
    for (std::size_t gap; (gap = text.find(kTwoEmptyLines)) != std::string::npos;) text.erase(gap, 1);
    return text;
}

} // namespace corvane::cli
