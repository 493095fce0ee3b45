#include "StoredRows.h"

#include <PlannerCore/Detail/Sqlite.h>

using planner::detail::Access;
using planner::detail::Database;
using planner::detail::Statement;

StoredRows storedRows(const std::filesystem::path& folder) {
    Database database(folder / "Planner.sqlite", Access::readOnly);
    Statement rows(database, "SELECT key, kind, payload FROM PlannerRecord");
    StoredRows found;
    while (rows.step())
        found[std::string(rows.text(0).value_or("?"))] = {std::string(rows.text(1).value_or("?")),
                                                          std::string(rows.blob(2).value_or("?"))};
    return found;
}

void executeSql(const std::filesystem::path& file, const std::string& sql) {
    Database(file, Access::readWrite).execute(sql.c_str());
}
