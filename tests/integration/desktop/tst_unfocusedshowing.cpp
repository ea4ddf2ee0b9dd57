// On a real display with a window manager. That no focus is taken is tested with the whole program.

#include "platform/linux/desktop/ActiveWindowWatch.h"
#include "platform/linux/desktop/UnfocusedShowing.h"

#include <QGuiApplication>
#include <QTest>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>

using namespace kest;

class TestUnfocusedShowing : public QObject
{
    Q_OBJECT

    std::unique_ptr<ActiveWindowWatch> m_watch;
    std::unique_ptr<UnfocusedShowing> m_showing;
    std::unique_ptr<QWindow> m_window;

    static xcb_connection_t *display()
    {
        return qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    }

    QByteArray property(const char *name) const
    {
        const auto atom = xcb_intern_atom(display(), true, uint16_t(std::strlen(name)), name);
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> named(
            xcb_intern_atom_reply(display(), atom, nullptr), &std::free);
        const auto asked = xcb_get_property(display(), false, xcb_window_t(m_window->winId()), named->atom,
                                            XCB_ATOM_ANY, 0, 64);
        const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
            xcb_get_property_reply(display(), asked, nullptr), &std::free);
        return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                          xcb_get_property_value_length(reply.get()));
    }

    /// The input field of WM_HINTS; true where the field does not count.
    bool takesInput() const
    {
        const QByteArray hints = property("WM_HINTS");
        quint32 first[2] = { 0, 0 };
        if (hints.size() >= qsizetype(sizeof first))
            std::memcpy(first, hints.constData(), sizeof first);
        return !(first[0] & 1) || first[1];
    }

    void make(Qt::WindowFlags flags = {})
    {
        m_window = std::make_unique<QWindow>();
        m_window->setFlags(m_window->flags() | flags);
        m_window->create();
    }

    void show(bool withoutActivating)
    {
        m_window->setProperty("_q_showWithoutActivating", withoutActivating);
        m_window->show();
    }

private Q_SLOTS:
    void init()
    {
        m_watch = ActiveWindowWatch::onDisplay();
        QVERIFY(m_watch);
        m_showing = std::make_unique<UnfocusedShowing>(*m_watch);
    }

    void cleanup()
    {
        m_window.reset();
        m_showing.reset();
        m_watch.reset();
    }

    void itTakesNoInputUntilTheWindowManagerListsIt()
    {
        make();
        const QByteArray protocols = property("WM_PROTOCOLS");
        show(true);
        QVERIFY(!takesInput());
        QCOMPARE(property("WM_PROTOCOLS").size(), protocols.size() - qsizetype(sizeof(quint32)));
        QTRY_VERIFY(m_watch->lists(quint32(m_window->winId())));
        QTRY_VERIFY(takesInput());
        QCOMPARE(property("WM_PROTOCOLS").size(), protocols.size());
    }

    void whatIsShownInTheOrdinaryWayIsLeftAlone()
    {
        make();
        show(false);
        QVERIFY(takesInput());
        QTRY_VERIFY(m_watch->lists(quint32(m_window->winId())));
        QVERIFY(takesInput());
    }

    void aWindowThatNobodyListsTakesInputAgainInTheEnd()
    {
        make(Qt::BypassWindowManagerHint);
        show(true);
        QVERIFY(!takesInput());
        QTRY_VERIFY_WITH_TIMEOUT(takesInput(), 60'000);
        QVERIFY(!m_watch->lists(quint32(m_window->winId())));
    }

    void itDoesSoEachTimeItIsShown()
    {
        make();
        for (int time = 0; time < 3; ++time) {
            show(true);
            QVERIFY(!takesInput());
            QTRY_VERIFY(takesInput());
            m_window->hide();
            QTRY_VERIFY(!m_watch->lists(quint32(m_window->winId())));
        }
    }
};

QTEST_MAIN(TestUnfocusedShowing)
#include "tst_unfocusedshowing.moc"
