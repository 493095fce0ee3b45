#pragma once

#include <functional>
#include <string>

/// Runs `action` in a process of its own, so that limits, users and mounts that it takes on end with it.
/// Gives what `action` returned, what it threw as "threw: …", or "died" when the process was ended from
/// outside. Gtest's checks in it count for nothing.
std::string inChildProcess(const std::function<std::string()>& action);

/// Turns the process, where it is root's, into that of a user whom permission bits bind. Throws
/// std::system_error.
void becomeNobody();
