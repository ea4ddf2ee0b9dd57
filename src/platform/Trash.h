#pragma once

#include "platform/Error.h"
#include "platform/FileURL.h"

namespace kest {

/// The desktop's trash: where things go that a person may want back.
class Trash
{
public:
    virtual ~Trash() = default;

    /// Moves the file or folder `atURL` into the trash, from where the desktop's
    /// file manager can put it back. A symbolic link goes as itself; what it
    /// points to stays. Returns at once when the move is a change of name only.
    ///
    /// False when it could not be moved; then it is where it was, whole, and
    /// `error`, which may be null, says why. Never deletes anything, and nothing
    /// that already is in the trash is replaced.
    ///
    /// `resultingItemURL`, which may be null, is set to where it lies now.
    virtual bool trashItem(const FileURL &atURL, Error *error, FileURL *resultingItemURL = nullptr) = 0;

    /// Takes `trashedItem`, which `trashItem` told of, out of the trash again
    /// and gives it the name and place `toURL`. Never replaces anything: false,
    /// with everything as it was, when something bears that name meanwhile, when
    /// its folder or the thing itself is gone, or for another reason; `error`
    /// may be null.
    virtual bool putBack(const FileURL &trashedItem, const FileURL &toURL, Error *error) = 0;
};

} // namespace kest
