#pragma once

#include "Model/CardListModel.h"
#include "Model/Preferences.h"
#include "Platform/LoginItem.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
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
    Q_PROPERTY(QString appearance READ appearance WRITE setAppearance NOTIFY preferencesChanged)
    Q_PROPERTY(QString clockStyle READ clockStyle WRITE setClockStyle NOTIFY preferencesChanged)
    /// In minutes.
    Q_PROPERTY(int defaultMinutes READ defaultMinutes WRITE setDefaultMinutes NOTIFY preferencesChanged)
    Q_PROPERTY(bool hoverEnabled READ hoverEnabled WRITE setHoverEnabled NOTIFY preferencesChanged)
    /// In logical pixels.
    Q_PROPERTY(double cardWidth READ cardWidth WRITE setCardWidth NOTIFY preferencesChanged)
    /// Whether the width is being dragged: it takes effect step by step, and is saved once that is over.
    Q_PROPERTY(bool adjusting READ adjusting WRITE setAdjusting NOTIFY adjustingChanged)
    /// The display that hosts the panel; 0 is the built-in one, or the first.
    Q_PROPERTY(quint32 displayID READ displayID WRITE setDisplayID NOTIFY preferencesChanged)
    /// The attached displays, each with `id` and `name`; `refreshDisplays` reads them.
    Q_PROPERTY(QVariantList displays READ displayValues NOTIFY displaysChanged)
    /// Whether the chosen display is none of `displays`.
    Q_PROPERTY(bool displayMissing READ displayMissing NOTIFY displayMissingChanged)
    Q_PROPERTY(orvane::CardListModel* cards READ cards CONSTANT)
    Q_PROPERTY(QStringList visibleCards READ visibleCardNames NOTIFY preferencesChanged)
    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged)

public:
    enum class ColorScheme { light, dark };

    /// Takes one reference to the platform, which must outlive this.
    explicit SettingsModel(Platform& platform, QObject* parent = nullptr);
    /// Saves what a drag has not saved yet.
    ~SettingsModel() override;

    const Preferences& preferences() const { return preferences_; }
    /// Replaces the record and saves it; nothing happens when it is equal.
    void setPreferences(const Preferences& preferences);

    /// Writes the record under "preferences.v1", then calls `onChange` where it is set.
    void save();
    /// Swaps `card` with the one `offset` places later (earlier, when negative) and saves; nothing
    /// when there is no such place.
    void move(WorkspaceCard card, int offset);
    /// As `move`, by the card's stored word; nothing for any other text.
    Q_INVOKABLE void moveCard(const QString& card, int offset);
    /// Shows or hides the card of this stored word; nothing for any other text.
    Q_INVOKABLE void setCardShown(const QString& card, bool shown);
    /// Default order, no hidden card, default width: saved after each of the three changes.
    Q_INVOKABLE void resetLayout();

    /// Reads the attached displays again; done by itself whenever they change.
    Q_INVOKABLE void refreshDisplays();
    const QList<DisplayOption>& displays() const { return displays_; }
    QVariantList displayValues() const;
    bool displayMissing() const { return displayMissing_; }

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
    quint32 displayID() const { return preferences_.displayID; }
    bool adjusting() const { return adjusting_; }
    void setAdjusting(bool adjusting);
    // Each of these saves the record when the value is another one, the width only while it is not dragged.
    // Minutes and width are clamped to what `Preferences` allows; a width that is no number does nothing.
    void setAppearance(const QString& appearance);
    void setClockStyle(const QString& clockStyle);
    void setDefaultMinutes(int minutes);
    void setHoverEnabled(bool enabled);
    void setCardWidth(double width);
    void setDisplayID(quint32 id);
    /// Every card in the user's order, hidden ones too. Owned by this.
    CardListModel* cards() { return &cards_; }
    /// The built cards that are not hidden, in the user's order.
    QList<WorkspaceCard> visibleCards() const;
    QStringList visibleCardNames() const;

    /// Called after each save.
    std::function<void()> onChange;

signals:
    void preferencesChanged();
    void adjustingChanged();
    void darkChanged();
    void displaysChanged();
    void displayMissingChanged();
    void loginChanged();

private:
    /// Takes the record over and announces what differs.
    void adopt(const Preferences& preferences);
    /// Adopts the record and saves it even when nothing differs.
    void apply(const Preferences& preferences);
    template <class Value>
    void set(Value Preferences::*field, const Value& value);
    void updateDisplayMissing();
    void write();

    Platform& platform_;
    Preferences preferences_;
    CardListModel cards_;
    bool adjusting_ = false;
    /// Whether `preferences_` differs from what was written.
    bool unsaved_ = false;
    QList<DisplayOption> displays_;
    bool displayMissing_ = false;
    std::optional<QString> loginError_;
    LoginItemStatus loginStatus_ = LoginItemStatus::notRegistered;
};

} // namespace orvane
