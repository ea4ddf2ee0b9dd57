#pragma once

#include "ui/controls/ControlButton.h"

namespace kest {

class PullDownMenu;

/// A button that opens a menu. Its face shows the image of the menu's first
/// item, which stands only there and never in the open menu.
class PullDownButton : public ControlButton
{
    Q_OBJECT

public:
    explicit PullDownButton(QWidget *parent = nullptr);

    /// The menu, which this button owns.
    PullDownMenu *menu() const { return m_menu; }

Q_SIGNALS:
    /// The menu is about to open: the moment to fill it.
    void menuNeedsUpdate();

protected:
    void paintEvent(QPaintEvent *event) override;
    QString shownImage() const override;
    QSize extraSize() const override;

private:
    void openMenu();

    PullDownMenu *m_menu;
};

} // namespace kest
