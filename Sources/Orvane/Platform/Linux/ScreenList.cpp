#include "Platform/Linux/ScreenList.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QStringList>

namespace orvane {
namespace {

bool builtIn(const QString& output) {
    for (const auto* kind : {"eDP", "LVDS", "DSI"})
        if (output.startsWith(QLatin1String(kind), Qt::CaseInsensitive)) return true;
    return false;
}

QString title(const QScreen& screen) {
    const auto reported = QStringList{screen.manufacturer(), screen.model()}.join(QLatin1Char(' ')).trimmed();
    return reported.isEmpty() ? screen.name() : reported;
}

/// The application object cannot be asked: here `qApp` already takes it for a graphical one.
bool hasWindowSystem() {
    return !QGuiApplication::platformName().isEmpty();
}

Screen described(const QScreen& screen) {
    Screen result;
    result.id =
        displayIdentifier(screen.manufacturer(), screen.model(), screen.serialNumber(), screen.name());
    result.name = title(screen);
    result.frame = upwards(screen.geometry());
    result.visible = upwards(screen.availableGeometry());
    result.scale = screen.devicePixelRatio();
    result.builtIn = builtIn(screen.name());
    return result;
}

} // namespace

ScreenList::ScreenList(QObject* parent) : Screens(parent) {
    if (!hasWindowSystem()) return;
    for (auto* screen : QGuiApplication::screens()) follow(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
        follow(screen);
        emit changed();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &Screens::changed, Qt::QueuedConnection);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &Screens::changed);
}

void ScreenList::follow(QScreen* screen) {
    connect(screen, &QScreen::geometryChanged, this, &Screens::changed);
    connect(screen, &QScreen::availableGeometryChanged, this, &Screens::changed);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &Screens::changed);
}

QList<Screen> ScreenList::list() const {
    QList<Screen> result;
    if (!hasWindowSystem()) return result;
    const auto screens = QGuiApplication::screens();
    for (const auto* screen : screens)
        // The window system stands in with a nameless screen while no display is connected.
        if (!screen->name().isEmpty() && !screen->geometry().isEmpty()) result.append(described(*screen));
    return result;
}

std::uint32_t displayHash(const QString& text) {
    std::uint32_t hash = 2166136261u;
    const auto bytes = text.toUtf8();
    for (const char byte : bytes) {
        hash ^= static_cast<unsigned char>(byte);
        hash *= 16777619u;
    }
    return hash == 0 ? 1 : hash;
}

std::uint32_t displayIdentifier(const QString& maker, const QString& model, const QString& serial,
                                const QString& output) {
    const QStringList reported{maker, model, serial};
    const bool empty = reported.join(QString()).trimmed().isEmpty();
    return displayHash(empty ? output : reported.join(QLatin1Char('\n')));
}

} // namespace orvane
