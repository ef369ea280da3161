// A running dialog as the user agent sees and works it, shared by the files of the
// dialog layer only. Every act is a message to a control or to the dialog, followed by
// the dispatch of what the handlers posted, so that the dialog runs as for a person.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/win/user_agent.h"

namespace win::detail {

struct DialogState {
    INT_PTR (*proc)(HWND, UINT, WPARAM, LPARAM) = nullptr;
    int resourceId = 0;
    bool ended = false;
    INT_PTR result = -1;
};

class DialogSeat : public ModalDialog {
  public:
    // The state outlives the window, so that a dialog destroyed by its own handler still
    // answers Ended and Result.
    DialogSeat(HWND dialog, std::shared_ptr<DialogState> state);

    // Dispatches the messages that wait in the queue, until none is left or the dialog
    // has ended.
    void Pump();

    int ResourceId() const override;
    std::string Caption() const override;
    std::vector<ControlView> Controls() const override;
    int FocusId() const override;
    bool Ended() const override;
    int Result() const override;

    bool Focus(int id) override;
    bool Type(int id, const std::string& text) override;
    bool Click(int id) override;
    bool Choose(int id, const std::string& item) override;
    void Escape() override;
    void End(int result) override;

  private:
    // The enabled control of this id that can take an act, or null.
    HWND Workable(int id) const;

    HWND dialog_;
    std::shared_ptr<DialogState> state_;
    mutable std::string caption_;  // kept, so that a destroyed dialog can still be named
};

}  // namespace win::detail
