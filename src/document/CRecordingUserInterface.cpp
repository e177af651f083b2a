#include "document/CRecordingUserInterface.h"

namespace kavrin {

namespace {
IUserInterface* gUI = nullptr;

IUserInterface& DefaultUI() {
    static CRecordingUserInterface silent;
    return silent;
}
} // namespace

IUserInterface& UI() {
    return gUI ? *gUI : DefaultUI();
}

IUserInterface* SetUI(IUserInterface* ui) {
    IUserInterface* previous = gUI;
    gUI = ui;
    return previous;
}

} // namespace kavrin
