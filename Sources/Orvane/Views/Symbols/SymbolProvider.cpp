#include "Views/Symbols/SymbolProvider.h"

#include <QFile>
#include <QLoggingCategory>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

namespace orvane {

namespace {

struct SymbolRequest {
    QString name;
    QString color;
    QString stroke;
};

SymbolRequest parsed(const QString& id) {
    static const QRegularExpression pattern(
        QStringLiteral("^(.+?)(?:/((?:[0-9a-f]{2})?[0-9a-f]{6})(?:/([0-9.]+))?)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = pattern.match(id);
    return {match.captured(1), match.captured(2), match.captured(3)};
}

QByteArray drawing(const SymbolRequest& request) {
    QFile file(QStringLiteral(":/qt/qml/Orvane/Views/Symbols/%1.svg").arg(request.name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QByteArray text = file.readAll();
    // The renderer knows no eight-digit colours; opacity is given where the symbol is placed.
    if (!request.color.isEmpty()) text.replace("currentColor", "#" + request.color.right(6).toLatin1());
    if (!request.stroke.isEmpty())
        text.replace("stroke-width=\"1.75\"", "stroke-width=\"" + request.stroke.toLatin1() + "\"");
    return text;
}

} // namespace

SymbolProvider::SymbolProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage SymbolProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const auto text = drawing(parsed(id));
    QSvgRenderer renderer;
    if (text.isEmpty() || !renderer.load(text)) {
        qWarning("There is no symbol \"%s\".", qUtf8Printable(id));
        return {};
    }
    const QSize drawn =
        requestedSize.isValid() && !requestedSize.isEmpty() ? requestedSize : renderer.defaultSize();
    QImage image(drawn, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    if (size) *size = drawn;
    return image;
}

} // namespace orvane
