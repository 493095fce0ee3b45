#pragma once

#include "Platform/Screens.h"

class QScreen;

namespace orvane {

/// The window system's displays as Qt knows them; empty in a program without a window system. The id
/// is a hash of the maker, model and serial number that the display reports (EDID), or of its
/// output's name where it reports none.
class ScreenList : public Screens {
    Q_OBJECT

public:
    explicit ScreenList(QObject* parent = nullptr);

    QList<Screen> list() const override;

private:
    void follow(QScreen* screen);
};

/// The 32-bit FNV-1a hash of a text's UTF-8 bytes, 1 in place of 0.
std::uint32_t displayHash(const QString& text);

/// The id of the display at the output named `output`: from what it reports of itself (EDID), so that it
/// keeps its id at another output; from the output's name where it reports nothing. Never 0.
std::uint32_t displayIdentifier(const QString& maker, const QString& model, const QString& serial,
                                const QString& output);

} // namespace orvane
