#include "platform/qt/Icons.h"

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QIODevice>
#include <QIconEngine>
#include <QPalette>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QSvgRenderer>

#include <utility>

namespace plenair {

namespace {

// Icons are drawn in the theme's ink: the files leave their strokes in the colour of the text around them.
QByteArray IconSource(const QString& icon, const QColor& ink) {
    static QHash<QString, QByteArray> s_sources;
    auto source = s_sources.find(icon);
    if (source == s_sources.end()) {
        QFile file(":/icons/" + icon + ".svg");
        source = s_sources.insert(icon, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    }
    QByteArray text = *source;
    return text.replace("currentColor", ink.name().toLatin1());
}

class InkEngine : public QIconEngine {
  public:
    InkEngine(QString icon, QPalette palette) : m_icon(std::move(icon)), m_palette(std::move(palette)) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        DrawIcon(*painter, m_icon, area, m_palette.color(group, QPalette::ButtonText));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new InkEngine(m_icon, m_palette); }

  private:
    QString m_icon;
    QPalette m_palette;
};

} // namespace

void DrawIcon(QPainter& painter, const QString& icon, const QRectF& area, const QColor& ink) {
    QSvgRenderer renderer(IconSource(icon, ink));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, area);
}

QIcon ButtonIcon(const QString& icon, const QPalette& palette) {
    return QIcon(new InkEngine(icon, palette));
}

QIcon WindowIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        DrawIcon(painter, "solver/plenair", pixmap.rect(), Qt::black);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace plenair
