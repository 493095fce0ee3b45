#pragma once

#include "Platform/InformationDictionary.h"

#include <QJsonObject>

namespace orvane {

/// The dictionary that the build wrote into the program; a text that was left empty is absent.
class BuildInformation : public InformationDictionary {
public:
    BuildInformation();

    std::optional<QString> text(const QString& key) const override;

private:
    QJsonObject values_;
};

} // namespace orvane
