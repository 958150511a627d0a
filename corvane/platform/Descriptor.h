// A file descriptor that is closed when it goes out of scope.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace corvane {

class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() { static_cast<void>(close()); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            static_cast<void>(close());
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }

    int number() const { return number_; }
    bool isOpen() const { return number_ >= 0; }

    // 0, or the errno value of a failed closing, which may be that of an earlier write. It is closed in any case.
    int close() {
        const int number = std::exchange(number_, -1);
        return number < 0 || ::close(number) == 0 ? 0 : errno;
    }

private:
    int number_;
};

} // namespace corvane
