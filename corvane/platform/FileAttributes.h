// What belongs to a file beside its bytes.
#pragma once

struct stat;

namespace corvane {

// Gives the file `target`, which we have just made, the owner, the permission bits, the access control list and the
// extended attributes of the file `source`. What the system does not permit or the file system does not support is
// left out: where the owner cannot be taken over, neither is the set-user-ID bit; where the group cannot be, its
// permissions are cut down to those of everybody. Any other failure, a full disk for one, is raised with errno's
// number and text.
//
// Attributes that vouch for the content (security.ima, security.evm) stay behind: they would be wrong.
void takeOverAttributes(int source, const struct stat& status, int target);

} // namespace corvane
