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

} // namespace orvane
