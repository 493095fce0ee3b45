#include "Windows/TrackingHost.h"

namespace orvane {

TrackingHost::TrackingHost(QObject* root) : QObject(root) {
    connect(root, SIGNAL(entered()), this, SLOT(onEntered()));
    connect(root, SIGNAL(exited()), this, SLOT(onExited()));
    connect(root, SIGNAL(open()), this, SLOT(onOpen()));
}

void TrackingHost::onEntered() {
    if (entered) entered();
}

void TrackingHost::onExited() {
    if (exited) exited();
}

void TrackingHost::onOpen() {
    if (open) open();
}

} // namespace orvane
