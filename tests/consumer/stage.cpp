#include <zarnic/testing/Stage.h>
#include <zarnic/zarnic.h>

#include <cstdio>

int main() {
    zn::Stage stage;
    stage.show(zn::make<zn::UIViewController>());
    zn::ZNPromptWindow::ShowMsg("Saved");
    stage.advance(1);
    const bool shown = zn::ZNPromptWindow::SharedInstance()->showing();
    stage.advance(2);
    const bool gone = !zn::ZNPromptWindow::SharedInstance()->showing();
    std::printf("shown: %d, gone: %d\n", shown, gone);
    return shown && gone ? 0 : 1;
}
