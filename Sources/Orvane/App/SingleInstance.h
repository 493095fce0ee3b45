#pragma once

#include <QDBusAbstractAdaptor>
#include <QObject>
#include <QVariantMap>

#include <functional>

namespace orvane {

/// The program's name on the session bus, "app.orvane.Orvane", through which a second start reaches
/// the first (org.freedesktop.Application, Desktop Entry Specification). Main thread.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// `activated` is called whenever somebody asks the program to show itself.
    explicit SingleInstance(std::function<void()> activated, QObject* parent = nullptr);

    /// Takes the name; without a session bus, or when another program has it, nothing is taken.
    void claim();

    /// Asks the running program to show itself. Returns whether it answered.
    static bool activateOther();

private:
    friend class ApplicationAdaptor;
    std::function<void()> activated_;
};

/// The three calls of org.freedesktop.Application. The program opens no files and has no actions: each
/// shows it.
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(SingleInstance& owner) : QDBusAbstractAdaptor(&owner), owner_(owner) {}

public slots:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& addresses, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameter, const QVariantMap& platformData);

private:
    SingleInstance& owner_;
};

} // namespace orvane
