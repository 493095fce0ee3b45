#pragma once

#include <QString>

#include <exception>

namespace orvane {

/// What a failure says to the user: the system's own words for a system error, without the name of the
/// call that failed; otherwise the failure's text. Any thread.
QString failureText(const std::exception& failure);

} // namespace orvane
