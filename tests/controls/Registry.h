// The test classes of this program. Each registers itself by name; the program runs the one that is asked for.
#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace corvane::test {

using MakeTest = std::function<std::unique_ptr<QObject>()>;

inline std::map<std::string, MakeTest>& testClasses() {
    static std::map<std::string, MakeTest> classes;
    return classes;
}

template <class Test>
bool registerTest(const char* name) {
    testClasses()[name] = [] { return std::make_unique<Test>(); };
    return true;
}

} // namespace corvane::test
