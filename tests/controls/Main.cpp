// Runs the test class that the first argument names; the other arguments go to QtTest.
#include "tests/controls/Registry.h"

#include <QApplication>
#include <QtTest>
#include <cstdio>
#include <vector>

int main(int argc, char** argv) {
    const auto& classes = corvane::test::testClasses();
    const auto found = argc > 1 ? classes.find(argv[1]) : classes.end();
    if (found == classes.end()) {
        std::fputs("usage: controls-tests CLASS [ARGUMENT...], with CLASS one of\n", stderr);
        for (const auto& [name, make] : classes) std::fprintf(stderr, "    %s\n", name.c_str());
        return 2;
    }
    const QApplication application(argc, argv);
    std::vector<char*> rest(argv, argv + argc);
    rest.erase(rest.begin() + 1);
    return QTest::qExec(found->second().get(), static_cast<int>(rest.size()), rest.data());
}
