#pragma once

#include <QHash>
#include <QObject>

#include <functional>

class QAbstractButton;
class QShortcut;

namespace kest {

class UserDefaults;

/// Makes the dynamic properties of a layout file live: connects its controls to
/// a target's operations and observable properties, and to settings.
///
/// On any control of the tree:
///
///     action       name of the target's slot that the control's clicked(),
///                  triggered() or, when the person chose, activated() calls
///     keys         a key sequence that clicks the control while it is enabled
///     bound        "text=recordingTime; onAir=recordingActive": the control's
///                  property follows the target's, and the target's follows the
///                  control's where the one announces changes and the other can
///                  be written
///     enabledWhen  names of the target's boolean properties, separated by
///                  spaces: enabled while any of them is true
///     disabledWhen the same, but disabled while any of them is true; wins
///     settingsKey  the settings key that the control shows and edits, through
///                  its user property (or the one named by settingsProperty)
///
/// On the root: any property whose value names a registered class, for example
/// mailASObject = "ASMail": an instance is made, owned by the root, and put into
/// the target's property of the same name.
///
/// A name that does not exist is a mistake in the layout file: it is logged,
/// and `isComplete` is false.
///
/// Owned by whoever owns the target; must not outlive target or settings.
class Bindings : public QObject
{
    Q_OBJECT

public:
    Bindings(QObject &target, UserDefaults &settings, QObject *parent = nullptr);

    /// How to make an instance that the layout file names by `className`.
    void registerClass(const QString &className, std::function<QObject *(QObject *owner)> make);

    /// Connects `root` and everything below it.
    void connectTree(QObject &root);

    /// Reads a button's `keys` again after they changed.
    void setKeys(QAbstractButton &button);

    bool isComplete() const { return m_complete; }

private:
    void connectObject(QObject &object);
    void connectAction(QObject &control, const QString &slot);
    void connectBound(QObject &control, const QString &pairs);
    void connectPair(QObject &control, const QString &controlProperty, const QString &targetProperty);
    void connectEnabled(QObject &control, const QStringList &anyOf, const QStringList &noneOf);
    void connectSetting(QObject &control, const QString &key);
    void makeInstances(QObject &root);
    void complain(const QObject &control, const QString &what);

    QObject &m_target;
    UserDefaults &m_settings;
    QHash<QString, std::function<QObject *(QObject *)>> m_classes;
    QHash<QAbstractButton *, QShortcut *> m_shortcuts;
    bool m_complete = true;
};

/// Calls back when a property announces a change. Lives as long as its parent.
class PropertyObserver : public QObject
{
    Q_OBJECT

public:
    /// Null when `object` has no such property, or one that announces nothing.
    static PropertyObserver *observe(QObject &object, const QString &property, std::function<void()> changed,
                                     QObject *parent);

private Q_SLOTS:
    void announce() { m_changed(); }

private:
    PropertyObserver(std::function<void()> changed, QObject *parent);

    std::function<void()> m_changed;
};

} // namespace kest
