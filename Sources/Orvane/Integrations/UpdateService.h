#pragma once

#include "Platform/InformationDictionary.h"

#include <QObject>
#include <QString>

namespace orvane {

/// Whether this build can be updated from a signed release feed. Main thread.
class UpdateService : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool configured READ configured CONSTANT)
    Q_PROPERTY(QString message READ message CONSTANT)

public:
    /// Decides once: the build must carry a feed's HTTPS address with a host and a public signing key.
    explicit UpdateService(const InformationDictionary& information, QObject* parent = nullptr);

    bool configured() const { return configured_; }
    /// One line for the settings.
    const QString& message() const { return message_; }

private:
    const bool configured_;
    const QString message_;
};

} // namespace orvane
