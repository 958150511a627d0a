// CLI11, and the kinds of options that several subcommands have.
#pragma once

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace corvane::cli {

template <class Value>
using Choices = std::vector<std::pair<std::string, Value>>;

// Adds an option that takes one of some words, each of which stands for a value of `chosen`.
template <class Value>
CLI::Option* addChoice(CLI::App& app, const std::string& name, Value& chosen, const std::string& description,
                       const Choices<Value>& choices) {
    std::string words;
    for (const auto& choice : choices) words.append(words.empty() ? "" : "|").append(choice.first);
    const auto store = [&chosen, choices, words, name](const std::string& word) {
        const auto found =
            std::find_if(choices.begin(), choices.end(), [&](const auto& choice) { return choice.first == word; });
        if (found == choices.end()) throw CLI::ValidationError(name, "\"" + word + "\" is none of " + words);
        chosen = found->second;
    };
    return app.add_option_function<std::string>(name, store, description)->type_name(words);
}

// Adds a flag, which takes no value: "--json=no" is wrong use.
inline void addFlag(CLI::App& app, const std::string& name, bool& isSet, const std::string& description) {
    app.add_flag(name, isSet, description)->disable_flag_override();
}

} // namespace corvane::cli
