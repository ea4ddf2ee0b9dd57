#pragma once

#include "ui/controls/ReadoutField.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QLabel>

namespace kest::test {

/// What has less room than its text needs, in words for the failure; empty when nothing is cut. A field that shortens a
/// long name or path on purpose is passed over.
inline QStringList cutTexts(const QWidget &root)
{
    QStringList cut;
    for (const QWidget *widget : root.findChildren<QWidget *>()) {
        const auto *readout = qobject_cast<const ReadoutField *>(widget);
        const auto *label = qobject_cast<const QLabel *>(widget);
        const bool mayShrink = (readout && readout->elided()) || widget->findChild<QAbstractScrollArea *>();
        const bool isText = label || qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QComboBox *>(widget);
        if (!widget->isVisible() || mayShrink || !isText)
            continue;
        QSize needed = widget->minimumSizeHint();
        if (readout && readout->tabular())
            needed.setHeight(widget->height()); // digits do not fill their line
        if (label && label->wordWrap())
            needed.setHeight(qMax(needed.height(), label->heightForWidth(label->width())));
        const QRect place(widget->mapTo(&root, QPoint()), widget->size());
        if (widget->width() < needed.width() || widget->height() < needed.height() || place.left() < 0
            || place.right() >= root.width())
            cut.append(QStringLiteral("%1 (%2) has %3x%4 at %5, needs %6x%7 within %8")
                           .arg(widget->objectName(), label ? label->text() : widget->accessibleName())
                           .arg(widget->width()).arg(widget->height()).arg(place.left())
                           .arg(needed.width()).arg(needed.height()).arg(root.width()));
    }
    return cut;
}

/// Texts that lie over one another, in words for the failure; empty when none do.
inline QStringList overlappingTexts(const QWidget &root)
{
    const auto seen = [&root](const QWidget *widget) { // what is scrolled out of sight lies over nothing
        return widget->visibleRegion().boundingRect().translated(widget->mapTo(&root, QPoint()));
    };
    QList<const QWidget *> texts;
    for (const QWidget *widget : root.findChildren<QWidget *>()) {
        const bool isText = qobject_cast<const QLabel *>(widget) || qobject_cast<const QAbstractButton *>(widget)
            || qobject_cast<const QComboBox *>(widget);
        if (isText && widget->isVisible() && widget->window() == &root && !widget->visibleRegion().isEmpty())
            texts.append(widget);
    }
    QStringList overlapping;
    for (const QWidget *one : texts) {
        for (const QWidget *other : texts) {
            if (one < other && seen(one).intersects(seen(other)) && !one->isAncestorOf(other) && !other->isAncestorOf(one))
                overlapping.append(one->objectName() + QStringLiteral(" lies over ") + other->objectName());
        }
    }
    return overlapping;
}

} // namespace kest::test
