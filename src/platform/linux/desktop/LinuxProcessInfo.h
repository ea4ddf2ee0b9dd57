#pragma once

#include "platform/ProcessInfo.h"

namespace kest {

/// On Linux the `.ui` files are drawn for interface generation 15, so their own
/// colours stand.
class LinuxProcessInfo : public ProcessInfo
{
public:
    std::optional<OperatingSystemVersion> operatingSystemVersion() const override
    {
        return OperatingSystemVersion { 10, 15, 0 };
    }
};

} // namespace kest
