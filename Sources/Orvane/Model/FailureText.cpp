#include "Model/FailureText.h"

#include <system_error>

namespace orvane {

QString failureText(const std::exception& failure) {
    if (const auto* system = dynamic_cast<const std::system_error*>(&failure))
        return QString::fromStdString(system->code().message());
    return QString::fromUtf8(failure.what());
}

} // namespace orvane
