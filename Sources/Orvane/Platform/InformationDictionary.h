#pragma once

#include <QString>

#include <optional>

namespace orvane {

/// What the build says about itself: "CFBundleIdentifier", "CFBundleShortVersionString", "SUFeedURL",
/// "SUPublicEDKey". Any thread.
class InformationDictionary {
public:
    virtual ~InformationDictionary() = default;

    /// The text under `key`; nothing when the build carries none.
    virtual std::optional<QString> text(const QString& key) const = 0;
};

} // namespace orvane
