#include "ui/controls/Icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

// Resources of a static library register themselves only when somebody asks; the macro wants no namespace round it.
static void registerIcons()
{
    static const bool registered = [] {
        Q_INIT_RESOURCE(icons);
        return true;
    }();
    Q_UNUSED(registered)
}

namespace kest {

namespace {

QString pathOf(const QString &name)
{
    registerIcons();
    return QStringLiteral(":/icons/%1.svg").arg(name);
}

QPixmap drawn(const QString &name, const QColor &color, QSize pixels)
{
    QFile file(pathOf(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray drawing = file.readAll();
    drawing.replace("currentColor", color.name(QColor::HexRgb).toLatin1());
    QSvgRenderer renderer(drawing);
    QPixmap pixmap(pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setOpacity(color.alphaF());
    renderer.render(&painter, QRectF(QPointF(), QSizeF(pixels)));
    return pixmap;
}

QPixmap cached(const QString &name, const QColor &color, QSize pixels)
{
    const QString key = QStringLiteral("kest/%1/%2/%3x%4")
                            .arg(name, color.name(QColor::HexArgb))
                            .arg(pixels.width())
                            .arg(pixels.height());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = drawn(name, color, pixels);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

class NamedIconEngine : public QIconEngine
{
public:
    explicit NamedIconEngine(QString name)
        : m_name(std::move(name))
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        paintIconNamed(*painter, QRectF(rect), m_name, color(mode));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        return cached(m_name, color(mode), size);
    }

    QIconEngine *clone() const override { return new NamedIconEngine(m_name); }
    QString key() const override { return QStringLiteral("KestNamedIconEngine"); }
    QString iconName() override { return m_name; }
    bool isNull() override { return !QFile::exists(pathOf(m_name)); }

private:
    static QColor color(QIcon::Mode mode)
    {
        const QPalette palette = QApplication::palette();
        if (mode == QIcon::Disabled)
            return palette.color(QPalette::Disabled, QPalette::ButtonText);
        return palette.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText);
    }

    QString m_name;
};

} // namespace

QIcon iconNamed(const QString &name)
{
    return QFile::exists(pathOf(name)) ? QIcon(new NamedIconEngine(name)) : QIcon();
}

void paintIconNamed(QPainter &painter, const QRectF &rect, const QString &name, const QColor &color)
{
    const double ratio = painter.device()->devicePixelRatioF();
    const QSize pixels = (rect.size() * ratio).toSize();
    QPixmap pixmap = cached(name, color, pixels);
    pixmap.setDevicePixelRatio(ratio);
    painter.drawPixmap(rect.topLeft(), pixmap);
}

QColor mixed(const QColor &under, const QColor &over, double amount)
{
    const auto part = [amount](float a, float b) {
        return static_cast<float>(static_cast<double>(a) * (1.0 - amount) + static_cast<double>(b) * amount);
    };
    return QColor::fromRgbF(part(under.redF(), over.redF()), part(under.greenF(), over.greenF()),
                            part(under.blueF(), over.blueF()));
}

QColor lineAccent(const QPalette &palette)
{
    const QColor accent = palette.color(QPalette::Highlight);
    return palette.color(QPalette::Window).lightness() < 128 ? mixed(accent, Qt::white, 0.3) : accent;
}

} // namespace kest
