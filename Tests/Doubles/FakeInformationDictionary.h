#pragma once

#include "Platform/InformationDictionary.h"

#include <QHash>

namespace orvane::test {

/// What the test says about the build.
class FakeInformationDictionary : public InformationDictionary {
public:
    std::optional<QString> text(const QString& key) const override {
        return texts.contains(key) ? std::optional(texts.value(key)) : std::nullopt;
    }

    QHash<QString, QString> texts{{QStringLiteral("CFBundleShortVersionString"), QStringLiteral("0.1.0")}};
};

} // namespace orvane::test
