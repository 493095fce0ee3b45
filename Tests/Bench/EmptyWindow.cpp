// What a window of this toolkit costs before it does anything: the floor for start and memory. It links the
// same libraries as Orvane, loads the same modules and draws the same way.

#include "Platform/Linux/DisplayProbe.h"

#include <QApplication>
#include <QQuickView>
#include <QTemporaryFile>

#include <cstdio>

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "xcb");
    if (!orvane::hasGraphicsHardware()) QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QApplication application(argc, argv);
    QTemporaryFile file;
    if (!file.open()) return 1;
    file.write("import QtQuick\nimport QtQuick.Templates as T\n"
               "import QtQuick.Shapes\nRectangle { color: \"#000000\" }\n");
    file.close();
    QQuickView window;
    window.setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    window.setResizeMode(QQuickView::SizeRootObjectToView);
    window.setGeometry(860, 0, 200, 32);
    window.setSource(QUrl::fromLocalFile(file.fileName()));
    window.show();
    return QApplication::exec();
}
