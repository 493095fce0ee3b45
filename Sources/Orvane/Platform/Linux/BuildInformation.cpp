#include "Platform/Linux/BuildInformation.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonValue>

namespace orvane {

BuildInformation::BuildInformation() {
    QFile file(QStringLiteral(":/orvane/Information.json"));
    if (file.open(QIODevice::ReadOnly)) values_ = QJsonDocument::fromJson(file.readAll()).object();
}

std::optional<QString> BuildInformation::text(const QString& key) const {
    const auto text = values_.value(key).toString();
    if (text.isEmpty()) return std::nullopt;
    return text;
}

} // namespace orvane
