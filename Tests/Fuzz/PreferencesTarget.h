#pragma once

#include <QByteArray>

namespace orvane::test {

/// Reads `bytes` as stored preferences. Ends the program where what was read cannot be shown as it is,
/// or does not come back from storage equal.
void readPreferences(const QByteArray& bytes);

} // namespace orvane::test
