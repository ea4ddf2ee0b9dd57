#pragma once

#include "platform/FileURL.h"

#include <utility>

namespace kest {

/// A folder that stays in reach as the one it is, also when its path leads
/// elsewhere meanwhile: for work that takes several steps and must not go on in
/// another folder.
class HeldFolder
{
public:
    /// One that is held by nothing but its path.
    explicit HeldFolder(FolderURL url) : m_url(std::move(url)) { }
    virtual ~HeldFolder() = default;
    Q_DISABLE_COPY_MOVE(HeldFolder)

    /// Leads to it for as long as this object lives; not to be shown or kept.
    const FolderURL &url() const { return m_url; }

private:
    const FolderURL m_url;
};

} // namespace kest
