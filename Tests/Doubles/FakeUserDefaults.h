#pragma once

#include "Platform/UserDefaults.h"

#include <QHash>
#include <QStringList>

namespace orvane::test {

/// Defaults in memory that remember in which order keys were written.
class FakeUserDefaults : public UserDefaults {
public:
    std::optional<QByteArray> data(const QString& key) const override {
        const auto found = values.constFind(key);
        return found == values.constEnd() ? std::nullopt : std::optional(*found);
    }

    void setData(const QString& key, const QByteArray& value) override {
        values[key] = value;
        writes.append(key);
    }

    QHash<QString, QByteArray> values;
    /// The key of each `setData`, oldest first.
    QStringList writes;
};

} // namespace orvane::test
