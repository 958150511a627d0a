// The folder in which the self-test runs, as the current one.
#pragma once

#include <string>

namespace corvane::cli {

class SelftestFolder {
public:
    // Enters a folder; without a name a fresh temporary one, which is gone with this object. Fails with a
    // RuntimeFailure.
    explicit SelftestFolder(const std::string& name);
    ~SelftestFolder();
    SelftestFolder(const SelftestFolder&) = delete;
    SelftestFolder& operator=(const SelftestFolder&) = delete;

    const std::string& name() const { return name_; }
    // Whether the scratch file of an earlier run lies here.
    bool hasScratchFile() const;

private:
    std::string name_;
    bool temporary_;
};

} // namespace corvane::cli
