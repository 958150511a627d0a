// A host that knows nothing but the installed library.
#include <corvane/corvane.h>

#include <iostream>

int main() {
    const auto node = corvane::XmlNode::fromText("<Tag>read</Tag>");
    std::cout << corvane::kVersion << ' ' << node.text() << '\n';
}
