#include "corvane/platform/FileAttributes.h"

#include "corvane/platform/Descriptor.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Failures.h"
#include "tests/support/Process.h"
#include "tests/support/ScratchFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>

namespace corvane::fileattributes_test {
namespace {

using test::ByteBuilder;
using test::bytesOf;
using test::ScratchFolder;
using test::statusOf;

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr const char* kDefaultList = "system.posix_acl_default";

// Gives `target` what belongs to `source`.
void takeOver(const std::string& source, const std::string& target) {
    const Descriptor from(::open(source.c_str(), O_RDONLY));
    const Descriptor to(::open(target.c_str(), O_RDWR));
    struct stat status {};
    ASSERT_EQ(::fstat(from.number(), &status), 0);
    takeOverAttributes(from.number(), status, to.number());
}

bool setAttribute(const std::string& path, const char* name, const ByteArray& value) {
    return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

std::optional<ByteArray> attribute(const std::string& path, const char* name) {
    ByteArray value(65'536);
    const ssize_t size = ::getxattr(path.c_str(), name, value.data(), value.size());
    if (size < 0) return std::nullopt;
    value.resize(static_cast<std::size_t>(size));
    return value;
}

// A folder with a file "old" and a file "new" of mode 0600, and the paths of both.
struct Pair {
    ScratchFolder folder;
    std::string old = folder.write("old", bytesOf("old"));
    std::string fresh = folder.write("new", bytesOf("new"));
    Pair() { ::chmod(fresh.c_str(), 0600); }
};

class PermissionBits : public testing::TestWithParam<mode_t> {};

TEST_P(PermissionBits, AreTakenOver) {
    const Pair files;
    ASSERT_EQ(::chmod(files.old.c_str(), GetParam()), 0);
    if (::access(files.old.c_str(), R_OK) != 0) GTEST_SKIP() << "only root may open a file of this mode";
    takeOver(files.old, files.fresh);
    EXPECT_EQ(statusOf(files.fresh).st_mode & 07777, GetParam());
}

std::string octal(mode_t mode) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%04o", mode);
    return text.data();
}

INSTANTIATE_TEST_SUITE_P(Modes, PermissionBits,
                         testing::Values(0644, 0600, 0666, 0777, 0000, 0444, 0200, 0751, 04755, 02775, 01644, 07777),
                         [](const auto& tested) { return octal(tested.param); });

TEST(FileAttributes, OwnerAndGroupAreTakenOverWithTheirBits) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can give files away";
    const Pair files;
    ASSERT_EQ(::chown(files.old.c_str(), 1234, 4321), 0);
    ASSERT_EQ(::chmod(files.old.c_str(), 06755), 0);
    takeOver(files.old, files.fresh);
    EXPECT_EQ(statusOf(files.fresh).st_uid, 1234U);
    EXPECT_EQ(statusOf(files.fresh).st_gid, 4321U);
    EXPECT_EQ(statusOf(files.fresh).st_mode & 07777, 06755U);
}

TEST(FileAttributes, WithoutTheOwnerAndGroupNobodyGetsMoreRights) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const Pair files;
    ASSERT_EQ(::chmod(files.folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chown(files.fresh.c_str(), test::kNobody, test::kNobody), 0);
    ASSERT_EQ(::chmod(files.old.c_str(), 06676), 0);
    EXPECT_EQ(test::asNobody([&] { return takeOver(files.old, files.fresh), 0; }), 0);
    EXPECT_EQ(statusOf(files.fresh).st_uid, test::kNobody);
    EXPECT_EQ(statusOf(files.fresh).st_mode & 07777, 0666U);
}

TEST(FileAttributes, ExtendedAttributesAreTakenOver) {
    const Pair files;
    if (!setAttribute(files.old, "user.comment", bytesOf("heard twice")))
        GTEST_SKIP() << "no extended attributes on the file system of the temporary folder";
    ASSERT_TRUE(setAttribute(files.old, "user.empty", {}));
    ASSERT_TRUE(setAttribute(files.old, "user.large", test::countedBytes(2000)));
    takeOver(files.old, files.fresh);
    EXPECT_EQ(attribute(files.fresh, "user.comment"), bytesOf("heard twice"));
    EXPECT_EQ(attribute(files.fresh, "user.empty"), ByteArray());
    EXPECT_EQ(attribute(files.fresh, "user.large"), test::countedBytes(2000));
}

TEST(FileAttributes, AnAttributeThatOnlyRootMaySetIsLeftOutForOthers) {
    if (!test::isRoot()) GTEST_SKIP() << "only root can become somebody else";
    const Pair files;
    // Anybody can read an attribute of this kind, root alone can set it.
    if (!setAttribute(files.old, "security.corvane", bytesOf("x")) ||
        !setAttribute(files.old, "user.comment", bytesOf("y")))
        GTEST_SKIP() << "no such attributes on the file system of the temporary folder";
    ASSERT_EQ(::chmod(files.folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chown(files.fresh.c_str(), test::kNobody, test::kNobody), 0);
    EXPECT_EQ(test::asNobody([&] { return takeOver(files.old, files.fresh), 0; }), 0);
    EXPECT_EQ(attribute(files.fresh, "security.corvane"), std::nullopt);
    EXPECT_EQ(attribute(files.fresh, "user.comment"), bytesOf("y"));
}

TEST(FileAttributes, WhatVouchesForTheContentStaysBehind) {
    const Pair files;
    if (!setAttribute(files.old, "security.ima", test::countedBytes(21)))
        GTEST_SKIP() << "this user or file system has no such attributes";
    takeOver(files.old, files.fresh);
    EXPECT_EQ(attribute(files.fresh, "security.ima"), std::nullopt);
}

// One entry of an access control list as the kernel stores it (linux/posix_acl_xattr.h), little-endian.
void appendEntry(ByteBuilder& list, unsigned tag, unsigned permissions, std::uint32_t id) {
    list.byte(tag).byte(0).byte(permissions).byte(0);
    for (unsigned shift = 0; shift < 32; shift += 8) list.byte(id >> shift & 0xFF);
}

// Owner rw, user 1234 `permissions`, group r, mask rwx, others none.
ByteArray accessList(unsigned permissions) {
    constexpr std::uint32_t kNoId = 0xFFFF'FFFF;
    ByteBuilder list;
    list.byte(2).repeat(0, 3);
    appendEntry(list, 0x01, 6, kNoId);
    appendEntry(list, 0x02, permissions, 1234);
    appendEntry(list, 0x04, 4, kNoId);
    appendEntry(list, 0x10, 7, kNoId);
    appendEntry(list, 0x20, 0, kNoId);
    return list.done();
}

TEST(FileAttributes, TheAccessControlListIsTakenOver) {
    const Pair files;
    if (!setAttribute(files.old, kAccessList, accessList(6)))
        GTEST_SKIP() << "no access control lists on the file system of the temporary folder";
    const mode_t mode = statusOf(files.old).st_mode;
    takeOver(files.old, files.fresh);
    EXPECT_EQ(attribute(files.fresh, kAccessList), accessList(6));
    EXPECT_EQ(statusOf(files.fresh).st_mode, mode);
}

TEST(FileAttributes, AListInheritedFromTheFolderLetsNobodyIn) {
    const ScratchFolder folder;
    const std::string old = folder.write("old", bytesOf("old"));
    ASSERT_EQ(::chmod(old.c_str(), 0660), 0);
    if (!setAttribute(folder.path(), kDefaultList, accessList(6)))
        GTEST_SKIP() << "no access control lists on the file system of the temporary folder";
    const std::string fresh = folder.write("new", bytesOf("new"));
    ASSERT_NE(attribute(fresh, kAccessList), std::nullopt) << "the new file inherits the folder's list";
    takeOver(old, fresh);
    EXPECT_EQ(attribute(fresh, kAccessList), std::nullopt);
    EXPECT_EQ(statusOf(fresh).st_mode & 07777, 0660U);
}

} // namespace
} // namespace corvane::fileattributes_test
