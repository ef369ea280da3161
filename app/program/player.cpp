#include "app/program/player.h"

#include <charconv>
#include <fstream>
#include <stdexcept>

#include "app/host_messages.h"
#include "app/host_view.h"
#include "app/netlist_view.h"
#include "app/program/program_host.h"
#include "app/program/seat.h"
#include "app/program/transcript.h"
#include "platform/afx/doc_template.h"
#include "platform/afx/document.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/tree_view.h"
#include "platform/win/messages.h"
#include "platform/win/paths.h"

namespace velorand::program {

namespace {

// A whole number of the script; false for a word that is none.
bool ParseNumber(const std::string& word, int& value) {
    const char* end = word.data() + word.size();
    auto [stop, failure] = std::from_chars(word.data(), end, value);
    return failure == std::errc() && stop == end && !word.empty();
}

afx::CView* FirstView(afx::CDocument* doc) {
    afx::POSITION pos = doc->GetFirstViewPosition();
    return pos != nullptr ? doc->GetNextView(pos) : nullptr;
}

// The codes by which the simulator's view reports a run's start and end.
bool IsRunReport(int code) {
    return code == 216 || code == 218 || code == 219;
}

}  // namespace

Player::Player(ProgramHost& host, Seat& seat, Transcript& transcript, bool echo)
    : host_(host), seat_(seat), transcript_(transcript), echo_(echo) {}

Player::Outcome Player::Play(const Action& action) {
    if (echo_) {
        transcript_.WriteRaw("> " + FormatAction(action));
    }
    const int unansweredBefore = seat_.Unanswered();
    std::string error;
    bool done = true;
    const std::string& name = action.name;
    if (name == "quit") {
        return Outcome::Quit;
    } else if (name == "open-project") {
        done = OpenProject(action, error);
    } else if (name == "close-project") {
        done = CloseProject(error);
    } else if (name == "open") {
        done = OpenDocument(action, error);
    } else if (name == "close") {
        done = CloseDocument(action, error);
    } else if (name == "save") {
        done = SaveDocument(action, error);
    } else if (name == "edit") {
        done = Edit(action, error);
    } else if (name == "command") {
        done = Command(action, error);
    } else if (name == "notify") {
        done = Notify(action, error);
    } else if (name == "answer") {
        done = Answer(action, error);
    } else if (name == "tree") {
        done = Tree(error);
    } else if (name == "status") {
        transcript_.Write("status", transcript_.ShowText(host_.MainFrame()->StatusText()));
    } else if (name == "show") {
        done = Show(action, error);
    } else if (name == "expect") {
        done = Expect(action, error);
    } else if (name == "crash") {
        const std::string what = action.arguments.empty() ? "crash" : action.arguments[0];
        host_.MainFrame()->PostAction([what] { throw std::runtime_error(what); });
    }
    if (!host_.Pump()) {
        return Outcome::Crashed;
    }
    if (done && seat_.Unanswered() > unansweredBefore) {
        done = false;
        error = "a question went unanswered";
    }
    if (!done) {
        transcript_.Write("error", "line " + std::to_string(action.line) + ": " + error);
        return Outcome::Failed;
    }
    return Outcome::Done;
}

std::string Player::PlatformPath(const std::string& path) const {
    return win::PlatformPath(transcript_.FullPath(path));
}

afx::CDocument* Player::Document(const std::string& path, std::string& error) const {
    afx::CDocument* doc = host_.FindDocument(PlatformPath(path));
    if (doc == nullptr) {
        error = path + " is not open";
    }
    return doc;
}

bool Player::OpenProject(const Action& action, std::string& error) {
    afx::CDocTemplate* tmpl = host_.ProjectTemplate();
    if (tmpl == nullptr) {
        error = "the component gave no project template";
        return false;
    }
    if (tmpl->OpenDocumentFile(PlatformPath(action.arguments[0]).c_str(), win::TRUE) == nullptr) {
        error = "the project " + action.arguments[0] + " was not opened";
        return false;
    }
    return true;
}

bool Player::CloseProject(std::string& error) {
    afx::CDocument* project = host_.Project();
    if (project == nullptr) {
        error = "no project is open";
        return false;
    }
    project->OnCloseDocument();
    if (host_.Project() != nullptr) {
        error = "the project stays open";
        return false;
    }
    return true;
}

bool Player::OpenDocument(const Action& action, std::string& error) {
    if (host_.OpenDocumentFile(PlatformPath(action.arguments[0]).c_str()) == nullptr) {
        error = action.arguments[0] + " was not opened";
        return false;
    }
    return true;
}

bool Player::CloseDocument(const Action& action, std::string& error) {
    afx::CDocument* doc = Document(action.arguments[0], error);
    if (doc == nullptr) {
        return false;
    }
    afx::CView* view = FirstView(doc);
    if (afx::CFrameWnd* frame = view != nullptr ? view->GetParentFrame() : nullptr) {
        frame->SendMessage(win::WM_CLOSE, 0, 0);
    } else {
        doc->OnCloseDocument();
    }
    if (host_.FindDocument(PlatformPath(action.arguments[0])) != nullptr) {
        error = action.arguments[0] + " stays open";
        return false;
    }
    return true;
}

bool Player::SaveDocument(const Action& action, std::string& error) {
    afx::CDocument* doc = Document(action.arguments[0], error);
    if (doc == nullptr) {
        return false;
    }
    const std::string target =
        action.arguments.size() > 1 ? PlatformPath(action.arguments[1]) : doc->GetPathName();
    if (!doc->DoSave(target.c_str(), win::TRUE)) {
        error = action.arguments[0] + " was not saved";
        return false;
    }
    return true;
}

bool Player::Edit(const Action& action, std::string& error) {
    afx::CDocument* doc = Document(action.arguments[0], error);
    if (doc == nullptr) {
        return false;
    }
    afx::CView* view = FirstView(doc);
    const std::string& line = action.arguments[1];
    if (view == nullptr || view->SendMessage(host::PM_RUN_SCRIPT, 0,
                                             reinterpret_cast<win::LPARAM>(line.c_str())) == 0) {
        error = "the editor did not run: " + line;
        return false;
    }
    return true;
}

bool Player::Command(const Action& action, std::string& error) {
    int id = 0;
    if (!ParseNumber(action.arguments[0], id) || id <= 0 || id > 0xFFFF) {
        error = "\"" + action.arguments[0] + "\" is no command id";
        return false;
    }
    if (action.arguments.size() == 1) {
        host_.MuteCommand(static_cast<win::UINT>(id));
        host_.MainFrame()->SendMessage(win::WM_COMMAND, static_cast<win::WPARAM>(id), 0);
        return true;
    }
    if (action.arguments[1] != "tree") {
        error = "a command goes to the main window, or to the \"tree\"";
        return false;
    }
    afx::CTreeView* tree = host_.TreeView();
    if (tree == nullptr) {
        error = "no project is open";
        return false;
    }
    tree->SendMessage(win::WM_COMMAND, static_cast<win::WPARAM>(id), 0);
    return true;
}

bool Player::Notify(const Action& action, std::string& error) {
    const std::vector<std::string>& args = action.arguments;
    int from = 0;
    int code = 0;
    int option = 0;
    if (!ParseNumber(args[1], from) || !ParseNumber(args[2], code) ||
        (args.size() > 3 && !ParseNumber(args[3], option))) {
        error = "the sender, the code and the option are numbers";
        return false;
    }
    const std::string* text = args.size() > 4 ? &args[4] : nullptr;
    const win::LPARAM argument = text != nullptr ? reinterpret_cast<win::LPARAM>(text->c_str()) : 0;
    host::NotifyOutcome outcome;
    if (args[0] == "-") {
        outcome = host::NotifyProject(nullptr, host_.MainFrame()->m_hWnd, from,
                                      static_cast<win::UINT>(code), nullptr, option, argument);
    } else {
        afx::CDocument* doc = Document(args[0], error);
        if (doc == nullptr) {
            return false;
        }
        auto* view = dynamic_cast<host::CHostView*>(FirstView(doc));
        if (view == nullptr) {
            error = args[0] + " has no view of the host";
            return false;
        }
        auto* netlist = dynamic_cast<host::CNetlistView*>(view);
        if (netlist != nullptr && from == host::kNetlistSender && IsRunReport(code) && !text) {
            outcome = netlist->ReportRun(static_cast<win::UINT>(code), option == 1);
        } else {
            outcome = view->NotifyAs(from, static_cast<win::UINT>(code), doc, option, argument);
        }
    }
    if (!outcome.delivered) {
        error = "there is no project to tell";
        return false;
    }
    transcript_.Write("result", std::to_string(outcome.result));
    return true;
}

bool Player::Answer(const Action& action, std::string& error) {
    if (!seat_.QueueAnswer(action.arguments[0])) {
        error = "\"" + action.arguments[0] + "\" is no answer to a question";
        return false;
    }
    return true;
}

bool Player::Tree(std::string& error) {
    if (!host_.ShowTree()) {
        error = "no project is open";
        return false;
    }
    return true;
}

bool Player::Show(const Action& action, std::string& error) {
    std::ifstream in(transcript_.FullPath(action.arguments[0]), std::ios::binary);
    if (!in) {
        error = "can't read " + action.arguments[0];
        return false;
    }
    transcript_.Write("file", transcript_.ShowPosix(transcript_.FullPath(action.arguments[0])));
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        transcript_.WriteRaw("  " + transcript_.ShowText(line));
    }
    return true;
}

bool Player::Expect(const Action& action, std::string& error) {
    const std::string& wanted = action.arguments[0];
    for (const std::string& line : transcript_.TakeRecent()) {
        if (line.rfind("> ", 0) != 0 && line.find(wanted) != std::string::npos) {
            return true;
        }
    }
    error = "no line since the last expect holds \"" + wanted + "\"";
    return false;
}

}  // namespace velorand::program
