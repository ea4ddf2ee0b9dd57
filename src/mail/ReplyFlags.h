#pragma once

namespace kest {

/// What is to become of a reply.
struct ReplyFlags {
    bool withReplyAll = false;     ///< To everybody, not only to where answers go.
    bool sendingReply = false;     ///< Sent at once, instead of shown.
    bool deletingOriginal = false; ///< The message answered is deleted at the end.
};

} // namespace kest
