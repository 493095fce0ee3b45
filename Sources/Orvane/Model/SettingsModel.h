#pragma once

#include "Model/Preferences.h"
#include "Platform/LoginItem.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace orvane {

struct Platform;

/// One display that can host the panel.
struct DisplayOption {
    std::uint32_t id = 0;
    QString name;

    bool operator==(const DisplayOption&) const = default;
};

/// Owner of the user's preferences: loads and repairs them at creation and saves every change. Main
/// thread.
class SettingsModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it.")
    Q_PROPERTY(QString appearance READ appearance NOTIFY preferencesChanged)
    Q_PROPERTY(QString clockStyle READ clockStyle NOTIFY preferencesChanged)
    Q_PROPERTY(int defaultMinutes READ defaultMinutes NOTIFY preferencesChanged)
    Q_PROPERTY(bool hoverEnabled READ hoverEnabled NOTIFY preferencesChanged)
    Q_PROPERTY(double cardWidth READ cardWidth NOTIFY preferencesChanged)
    Q_PROPERTY(QStringList visibleCards READ visibleCardNames NOTIFY preferencesChanged)
    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged)

public:
    enum class ColorScheme { light, dark };

    /// Takes one reference to the platform, which must outlive this.
    explicit SettingsModel(Platform& platform, QObject* parent = nullptr);

    const Preferences& preferences() const { return preferences_; }
    /// Replaces the record and saves it; nothing happens when it is equal.
    void setPreferences(const Preferences& preferences);

    /// Writes the record under "preferences.v1", then calls `onChange` where it is set.
    void save();
    /// Swaps `card` with the one `offset` places later (earlier, when negative) and saves; nothing
    /// when there is no such place.
    void move(WorkspaceCard card, int offset);
    /// Default order, no hidden card, default width: saved after each of the three changes.
    void resetLayout();

    /// Reads the attached displays again.
    void refreshDisplays();
    const QList<DisplayOption>& displays() const { return displays_; }

    /// Registers or unregisters the program as a login item and reads the status again; a failure's
    /// text stands in `loginError`.
    void setLogin(bool enabled);
    void refreshLoginStatus();
    LoginItemStatus loginStatus() const { return loginStatus_; }
    const std::optional<QString>& loginError() const { return loginError_; }

    /// Nothing while the system's scheme is followed.
    std::optional<ColorScheme> colorScheme() const;
    /// The scheme in force, the system's included.
    bool dark() const;

    QString appearance() const { return preferences_.appearance; }
    QString clockStyle() const { return preferences_.clockStyle; }
    int defaultMinutes() const { return int(preferences_.defaultMinutes); }
    bool hoverEnabled() const { return preferences_.hoverEnabled; }
    double cardWidth() const { return preferences_.cardWidth; }
    /// The built cards that are not hidden, in the user's order.
    QList<WorkspaceCard> visibleCards() const;
    QStringList visibleCardNames() const;

    /// Called after each save.
    std::function<void()> onChange;

signals:
    void preferencesChanged();
    void darkChanged();
    void displaysChanged();
    void loginChanged();

private:
    /// Takes the record over, announces what differs and saves it even when nothing does.
    void apply(const Preferences& preferences);

    Platform& platform_;
    Preferences preferences_;
    QList<DisplayOption> displays_;
    std::optional<QString> loginError_;
    LoginItemStatus loginStatus_ = LoginItemStatus::notRegistered;
};

} // namespace orvane
