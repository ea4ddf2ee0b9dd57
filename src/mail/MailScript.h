#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace kest {

/// The script that ASMail runs.
struct MailScript {
    QString path; ///< Where it was found: ":/ASMail.mjs" is the system's own.
    /// What stood there when it was judged, which may be empty; nothing for the system's own, which is read by its path.
    std::optional<QByteArray> text = std::nullopt;
};

/// The person's own script at `dataHome`/kest/ASMail.mjs when it is a regular
/// file in a real folder, both the person's (or root's) and writable for nobody
/// else, and of at most 1 MiB; else the resource.
///
/// What is judged is what is read: whoever puts another file in its place
/// afterwards changes nothing.
MailScript findMailScript(const QString &dataHome);

} // namespace kest
