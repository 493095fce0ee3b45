#pragma once

#include <QObject>

namespace orvane {

/// The running program as others find it on the session bus, "app.orvane.Orvane", with the interface
/// org.freedesktop.Application (freedesktop.org desktop entries, D-Bus activation). Main thread.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    /// Gives the name back.
    ~SingleInstance() override;

    /// Takes the name, so that `activated` follows when another start asks for it. False where there
    /// is no session bus or another program has the name; the program then runs without.
    bool claim();

    /// Asks the program that has the name to come to the front, and waits a few seconds for its answer.
    /// False when nobody answered. Starts nobody.
    static bool activateOther();

signals:
    /// Another start asks this one to come to the front.
    void activated();

private:
    bool claimed_ = false;
};

} // namespace orvane
