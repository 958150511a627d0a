#include "apps/cli/Arguments.h"

#include "apps/cli/Cli11.h"

#include <string_view>

namespace corvane::cli {

namespace {

bool takesValue(const CLI::App& app, const std::string& name) {
    const CLI::Option* option = app.get_option_no_throw(name);
    return option != nullptr && option->get_items_expected_max() > 0;
}

bool isOption(std::string_view word) { return word.size() > 1 && word.front() == '-'; }

} // namespace

Arguments sortArguments(const CLI::App& app, const std::vector<std::string>& words) {
    Arguments sorted;
    auto word = words.begin();
    for (; word != words.end() && *word != "--"; ++word) {
        if (!isOption(*word)) {
            sorted.operands.push_back(*word);
            continue;
        }
        const std::size_t equals = word->starts_with("--") ? word->find('=') : std::string::npos;
        if (equals != std::string::npos && takesValue(app, word->substr(0, equals))) {
            sorted.options.push_back(word->substr(0, equals));
            sorted.options.push_back(word->substr(equals + 1));
        } else {
            sorted.options.push_back(*word);
            if (takesValue(app, *word) && word + 1 != words.end()) sorted.options.push_back(*++word);
        }
    }
    if (word != words.end()) sorted.operands.insert(sorted.operands.end(), word + 1, words.end());
    return sorted;
}

} // namespace corvane::cli
