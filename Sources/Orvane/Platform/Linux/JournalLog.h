#pragma once

#include "Platform/Log.h"

namespace orvane {

/// The system's journal (sd_journal_send(3)), with private details replaced: other users may read it.
/// Where there is no journal, standard error; there details are shown to a terminal only.
class JournalLog : public Log {
public:
    void error(std::string_view category, std::string_view message, std::string_view detail) override;
};

} // namespace orvane
