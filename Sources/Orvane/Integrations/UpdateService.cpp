#include "Integrations/UpdateService.h"

#include <QUrl>

namespace orvane {

namespace {

bool carriesSignedFeed(const InformationDictionary& information) {
    const auto address = information.text(QStringLiteral("SUFeedURL"));
    if (!address) return false;
    // QUrl lowers the scheme's letters; the feed's address has to be written so.
    const QUrl feed(*address, QUrl::StrictMode);
    if (!feed.isValid() || !address->startsWith(u"https:") || feed.host().isEmpty()) return false;
    const auto key = information.text(QStringLiteral("SUPublicEDKey"));
    return key && !key->isEmpty();
}

} // namespace

UpdateService::UpdateService(const InformationDictionary& information, QObject* parent)
    : QObject(parent), configured_(carriesSignedFeed(information)),
      message_(configured_ ? tr("Updates are verified before installation.")
                           : tr("Updates will be available when a signed release feed is configured.")) {}

} // namespace orvane
