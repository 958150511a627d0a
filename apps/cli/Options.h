// The options of a subcommand: what may be said, and what was said.
//
// CLI11 does the work behind this, in one source file: its headers bring objects along that every source file including
// them would make anew each time the process starts.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvane::cli {

template <class Value>
using Choices = std::vector<std::pair<const char*, Value>>; // words and what they stand for

class Options {
public:
    // Takes the text behind an option; throws WrongUse when it cannot be meant.
    using Take = std::function<void(const std::string& text)>;

    Options();
    ~Options();
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    // names: "--name" or "-n,--name". valueName: what the help text calls the value. An option may be given once.
    void addFlag(const char* names, bool& isSet, const char* description);
    void addText(const char* names, const char* valueName, std::string& text, const char* description);
    void addValue(const char* names, const char* valueName, Take take, const char* description);
    void addNumber(const char* names, unsigned& number, unsigned least, unsigned most, const char* description);
    template <class Value>
    void addChoice(const char* names, Value& chosen, const char* description, const Choices<Value>& choices) {
        std::vector<std::string> words;
        for (const auto& choice : choices) words.emplace_back(choice.first);
        addWord(
            names, words, [&chosen, choices](std::size_t place) { chosen = choices[place].second; }, description);
    }
    // The heading of the options added from now on.
    void startGroup(const char* heading);

    struct Said {
        std::vector<std::string> operands; // the words that are no options
        bool wantsHelp = false;            // if so, nothing else was looked at
    };
    // Takes the words of a command line. Options and operands may stand in any order; behind "--" every word is an
    // operand, and "-" always is one. Throws WrongUse.
    Said take(const std::vector<std::string>& words);

    // The list of options, with a heading for each group.
    std::string help() const;

private:
    struct Parser;

    bool takesValue(const std::string& name) const;
    void parse(std::vector<std::string> words);
    void addWord(const char* names, const std::vector<std::string>& words, std::function<void(std::size_t place)> take,
                 const char* description);

    std::unique_ptr<Parser> parser_;
};

} // namespace corvane::cli
