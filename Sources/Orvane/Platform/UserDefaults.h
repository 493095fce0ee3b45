#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace orvane {

/// Small values of the user's that outlive the program, apart from the planner. Main thread.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// The bytes under `key`; nothing when there are none or they cannot be read.
    virtual std::optional<QByteArray> data(const QString& key) const = 0;

    /// Keeps `value` under `key`, on disk when this returns. A failure is logged: what these values
    /// hold can be chosen again.
    virtual void setData(const QString& key, const QByteArray& value) = 0;
};

} // namespace orvane
