#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace orvane {

/// The Dashboard's selected page. Main thread.
class NavigationModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it.")
    Q_PROPERTY(DashboardPage page READ page WRITE setPage NOTIFY pageChanged)

public:
    enum class DashboardPage { today, insights, history, settings };
    Q_ENUM(DashboardPage)

    using QObject::QObject;

    DashboardPage page() const { return page_; }
    void setPage(DashboardPage page) {
        if (page == page_) return;
        page_ = page;
        emit pageChanged();
    }

signals:
    void pageChanged();

private:
    DashboardPage page_ = DashboardPage::today;
};

} // namespace orvane
