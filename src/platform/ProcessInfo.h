#pragma once

#include <optional>

namespace kest {

struct OperatingSystemVersion {
    int major = 0;
    int minor = 0;
    int patch = 0;
};

/// What the process may ask about the system it runs on.
class ProcessInfo
{
public:
    virtual ~ProcessInfo() = default;

    /// The interface generation that the `.ui` files are drawn for, or nothing
    /// where the system does not tell.
    virtual std::optional<OperatingSystemVersion> operatingSystemVersion() const = 0;
};

} // namespace kest
