#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <utility>

/// The rows of a planner's file as another program sees them: kind and payload by key.
using StoredRows = std::map<std::string, std::pair<std::string, std::string>>;

/// Reads the rows through a connection of its own. Throws planner::StoreError.
StoredRows storedRows(const std::filesystem::path& folder);

/// Runs SQL on a database file through a connection of its own. Throws planner::StoreError.
void executeSql(const std::filesystem::path& file, const std::string& sql);
