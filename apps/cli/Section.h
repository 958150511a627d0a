// What `show` tells about a part of a file, before it becomes lines of text. Texts are as the library gives them; they
// are made fit for a terminal when they are written.
#pragma once

#include <string>
#include <vector>

namespace corvane::cli {

struct Row {
    std::string id;    // of a frame or field; "" where there is none
    std::string label; // what it is
    std::string value; // may have several lines; "" is shown as "-"
};

struct Section {
    std::string heading;
    std::vector<Row> rows;
};

} // namespace corvane::cli
