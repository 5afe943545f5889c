#include <QApplication>

#include "bench/Machine.h"
#include "bench/QtScene.h"

/// From the start of the process to the first frame of a screen with text.
int main(int count, char** values) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, values);
    bench::QtScene scene;
    scene.paintAll();
    bench::printPeakMemory();
    // No orderly end: the other program's time does not hold one either.
    std::_Exit(scene.picture().isNull() ? 1 : 0);
}
