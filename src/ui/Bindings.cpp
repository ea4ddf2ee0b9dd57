#include "ui/Bindings.h"

#include "app/UserDefaults.h"
#include "ui/controls/SeenClick.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLoggingCategory>
#include <QMetaProperty>
#include <QScopedValueRollback>
#include <QLabel>
#include <QShortcut>
#include <QWidget>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(log, "kest.ui.bindings")

QMetaProperty propertyOf(const QObject &object, const QString &name)
{
    const QMetaObject *meta = object.metaObject();
    return meta->property(meta->indexOfProperty(name.toUtf8().constData()));
}

QString textProperty(const QObject &object, const char *name)
{
    return object.property(name).toString();
}

/// Writes only what differs: a text cursor would jump otherwise.
void copyValue(const QVariant &value, QObject &to, const QMetaProperty &property)
{
    if (property.read(&to) != value)
        property.write(&to, value);
}

bool anyTrue(const QObject &object, const QStringList &names)
{
    return std::any_of(names.cbegin(), names.cend(),
                       [&](const QString &name) { return propertyOf(object, name).read(&object).toBool(); });
}

} // namespace

PropertyObserver::PropertyObserver(std::function<void()> changed, QObject *parent)
    : QObject(parent)
    , m_changed(std::move(changed))
{
}

PropertyObserver *PropertyObserver::observe(QObject &object, const QString &property, std::function<void()> changed,
                                            QObject *parent)
{
    const QMetaProperty observed = propertyOf(object, property);
    if (!observed.hasNotifySignal())
        return nullptr;
    auto *observer = new PropertyObserver(std::move(changed), parent);
    const int slot = staticMetaObject.indexOfSlot("announce()");
    connect(&object, observed.notifySignal(), observer, staticMetaObject.method(slot));
    return observer;
}

Bindings::Bindings(QObject &target, UserDefaults &settings, QObject *parent)
    : QObject(parent)
    , m_target(target)
    , m_settings(settings)
{
}

void Bindings::registerClass(const QString &className, std::function<QObject *(QObject *)> make)
{
    m_classes.insert(className, std::move(make));
}

void Bindings::connectTree(QObject &root)
{
    makeInstances(root);
    connectObject(root);
    const QList<QObject *> all = root.findChildren<QObject *>();
    for (QObject *object : all)
        connectObject(*object);
}

void Bindings::connectObject(QObject &object)
{
    // What a label shows may come from outside, and markup in it would load files.
    if (auto *label = qobject_cast<QLabel *>(&object))
        label->setTextFormat(Qt::PlainText);
    if (const QString slot = textProperty(object, "action"); !slot.isEmpty())
        connectAction(object, slot);
    if (auto *button = qobject_cast<QAbstractButton *>(&object); button && !textProperty(object, "keys").isEmpty())
        setKeys(*button);
    if (const QString pairs = textProperty(object, "bound"); !pairs.isEmpty())
        connectBound(object, pairs);
    const QStringList anyOf = textProperty(object, "enabledWhen").split(u' ', Qt::SkipEmptyParts);
    const QStringList noneOf = textProperty(object, "disabledWhen").split(u' ', Qt::SkipEmptyParts);
    if (!anyOf.isEmpty() || !noneOf.isEmpty())
        connectEnabled(object, anyOf, noneOf);
    if (const QString key = textProperty(object, "settingsKey"); !key.isEmpty())
        connectSetting(object, key);
}

void Bindings::complain(const QObject &control, const QString &what)
{
    m_complete = false;
    qCWarning(log, "%ls: there is no %ls", qUtf16Printable(control.objectName()), qUtf16Printable(what));
}

void Bindings::connectAction(QObject &control, const QString &slot)
{
    const QByteArray name = slot.toUtf8();
    if (m_target.metaObject()->indexOfMethod((name + "()").constData()) < 0)
        return complain(control, slot);
    const auto call = [this, name] { QMetaObject::invokeMethod(&m_target, name.constData()); };
    if (auto *button = qobject_cast<QAbstractButton *>(&control))
        onSeenClick(*button, this, call);
    else if (auto *menuItem = qobject_cast<QAction *>(&control))
        connect(menuItem, &QAction::triggered, this, call);
    else if (auto *popup = qobject_cast<QComboBox *>(&control))
        connect(popup, &QComboBox::activated, this, call);
    else
        complain(control, QStringLiteral("signal for an action"));
}

void Bindings::setKeys(QAbstractButton &button)
{
    QShortcut *&shortcut = m_shortcuts[&button];
    if (!shortcut) {
        // Not the button's own shortcut: that one clicks a tenth of a second later, and Record must not wait.
        shortcut = new QShortcut(button.window());
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, &button, &QAbstractButton::click);
    }
    shortcut->setKey(QKeySequence::fromString(textProperty(button, "keys"), QKeySequence::PortableText));
}

void Bindings::connectBound(QObject &control, const QString &pairs)
{
    const QStringList list = pairs.split(u';', Qt::SkipEmptyParts);
    for (const QString &pair : list)
        connectPair(control, pair.section(u'=', 0, 0).trimmed(), pair.section(u'=', 1).trimmed());
}

void Bindings::connectPair(QObject &control, const QString &controlProperty, const QString &targetProperty)
{
    const QMetaProperty shown = propertyOf(control, controlProperty);
    const QMetaProperty source = propertyOf(m_target, targetProperty);
    if (!shown.isValid() || !source.isValid())
        return complain(control, controlProperty + u'=' + targetProperty);
    const auto show = [this, &control, shown, source] { copyValue(source.read(&m_target), control, shown); };
    show();
    PropertyObserver::observe(m_target, targetProperty, show, &control);
    if (source.isWritable()) {
        PropertyObserver::observe(
            control, controlProperty,
            [this, &control, shown, source] { copyValue(shown.read(&control), m_target, source); }, &control);
    }
}

void Bindings::connectEnabled(QObject &control, const QStringList &anyOf, const QStringList &noneOf)
{
    const QMetaProperty enabled = propertyOf(control, QStringLiteral("enabled"));
    const auto decide = [this, &control, enabled, anyOf, noneOf] {
        const bool wanted = anyOf.isEmpty() || anyTrue(m_target, anyOf);
        enabled.write(&control, wanted && !anyTrue(m_target, noneOf));
    };
    for (const QString &name : anyOf + noneOf) {
        if (!PropertyObserver::observe(m_target, name, decide, &control))
            complain(control, name);
    }
    decide();
}

void Bindings::connectSetting(QObject &control, const QString &key)
{
    QString name = textProperty(control, "settingsProperty");
    if (name.isEmpty())
        name = QString::fromLatin1(control.metaObject()->userProperty().name());
    const QMetaProperty shown = propertyOf(control, name);
    if (!shown.isValid())
        return complain(control, QStringLiteral("property for ") + key);
    // A control may not be able to show a value (a choice without such an item): that is no wish to change it.
    const auto showing = std::make_shared<bool>(false);
    const auto show = [this, &control, shown, key, showing] {
        const QScopedValueRollback<bool> guard(*showing, true);
        QVariant value = m_settings.objectForKey(key);
        if (value.isValid() && value.convert(shown.metaType()))
            copyValue(value, control, shown);
    };
    show();
    connect(&m_settings, &UserDefaults::valueChanged, &control, [show, key](const QString &changed) {
        if (changed == key)
            show();
    });
    PropertyObserver::observe(
        control, name,
        [this, &control, shown, key, showing] {
            if (!*showing)
                m_settings.setObject(shown.read(&control), key);
        },
        &control);
}

void Bindings::makeInstances(QObject &root)
{
    const QList<QByteArray> names = root.dynamicPropertyNames();
    for (const QByteArray &name : names) {
        const auto make = m_classes.constFind(root.property(name.constData()).toString());
        if (make == m_classes.constEnd())
            continue;
        const QMetaProperty slot = propertyOf(m_target, QString::fromUtf8(name));
        QObject *instance = (*make)(&root);
        QVariant value = QVariant::fromValue(instance);
        // The property is of the instance's own class, so the pointer has to change its static type.
        if (!value.convert(slot.metaType()) || !slot.write(&m_target, value))
            complain(root, QString::fromUtf8(name));
    }
}

} // namespace kest
