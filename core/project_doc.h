// CProjectDoc: the one project document. It holds all that the component knows of the
// open project; the other parts of the component are operations on it. The host's
// documents, views and frames are only pointed at, never owned.
#pragma once

#include <cstdint>
#include <fstream>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/afx/document.h"
#include "platform/afx/file.h"
#include "platform/afx/menu.h"
#include "platform/win/message_box.h"
#include "platform/win/types.h"
#include "tools/schematic_node.h"

namespace afx {
class CComboBox;
class CFrameWnd;
class CView;
class CWnd;
}  // namespace afx

namespace velorand {

class CProjectView;
class SimulatorInfo;
struct ListingScratch;
struct ProjectNotify;
struct ProjectSettings;

class CProjectDoc : public afx::CDocument {
    DECLARE_DYNCREATE(CProjectDoc)
  public:
    // Made by the document template; reads the profile values, finds where the suite's
    // settings are kept, and asks "qvxtools" whether the suite runs its command tests.
    CProjectDoc();
    // Frees what the document owns; the project's files are not touched.
    ~CProjectDoc() override;

    // The host's main frame: receives every message of the component, owns the boxes.
    afx::CWnd* mainWnd = nullptr;
    afx::CWnd* treeFrame = nullptr;  // parent window of treeView
    CProjectView* treeView = nullptr;
    // Lower-cased schematic name to its record; the records are owned.
    std::map<std::string, SchematicNode> schematics;
    std::map<std::string, std::string> workFiles;  // work file path to real file path
    // The host's documents of this project: schematics and symbols at the head.
    std::list<afx::CDocument*> openDocs;
    std::list<std::string> mruFiles;  // the files of [MRU List], while a file is read
    win::HMENU hostMenu = nullptr;
    win::HMENU savedFrameMenu = nullptr;
    win::HMENU templateMenu = nullptr;
    afx::CMenu layoutMenu;
    afx::CMenu partsMenu;
    afx::CDocument* templateDoc = nullptr;
    afx::CDocument* topDoc = nullptr;
    afx::CDocument* activeDoc = nullptr;
    std::string projectID;
    std::string topLevelSchematic;
    std::string netlistFile;
    std::string toolLogFile;
    std::string location;  // ends in a backslash
    std::string workFolder;
    std::string relativePath;
    std::uint32_t projectVersion = 0;  // whatever the file says; nothing hangs on it
    std::int32_t simulator = -1;
    win::UINT replayCode = 0;
    std::int32_t lastLibIndex = 0;
    win::BOOL busy = 0;
    win::BOOL autoOpenFile = 1;      // profile "AutoOpenFile"
    win::BOOL showFileList = 0;      // profile "ShowFileList"
    win::BOOL templateDisabled = 0;  // profile "DisableQT"; also the template's guard
    win::BOOL projectDlgOpen = 0;
    win::BOOL treeValid = 1;
    win::BOOL toolsEnabled = 0;  // profile "SkipNetlist" 0
    win::BOOL ownWorkFolder = 0;
    win::BOOL foreignOwner = 0;
    win::BOOL outputsReadOnly = 0;
    win::BOOL tuning = 0;
    win::BOOL savingAll = 0;
    win::BOOL treeStale = 0;
    win::BOOL commandTest = 0;
    std::unique_ptr<SimulatorInfo> simulatorInfo;
    win::BOOL reportToolLog = 1;
    char line[600] = {};  // the buffer of every line read for the document
    std::ifstream treeStream;
    std::string profileSection = "Project";
    // The last key of the suite's registry path, or the settings file's name.
    std::string appKey;
    // The registry path under "Software"; none when the settings come from a file.
    std::optional<std::string> registryKey = "Dravik\\Velorand VX\\8.5";
    afx::CFile lockFile;
    win::BOOL lockHeld = 0;
    win::HTREEITEM docTreeItem = nullptr;
    std::vector<std::unique_ptr<std::string>> pdfFiles;  // tree items point at the strings
    std::string dateCreated;
    std::vector<std::string> searchPaths;

    // --- Entry and document ---

    // True if this document or any document of the project is modified; the child frame
    // that was active before the question is active again after it.
    win::BOOL IsModified() override;
    // Sets the flag, nothing more.
    void SetModifiedFlag(win::BOOL modified = win::TRUE) override;
    // Forgets the documents and schematic records and deletes the tree's leftovers.
    void DeleteContents() override;
    // Brings the active schematic's frame up, else the template's, else the next child.
    virtual void ActivateNextWindow();
    // A new project through the project dialog; 0 when none was made and loaded.
    win::BOOL OnNewDocument() override;
    // Opens a project file, the default session for an empty path; 0 when it failed.
    win::BOOL OnOpenDocument(win::LPCSTR path) override;
    // Saves and closes the project and its windows unless the user refuses, then deletes
    // the document. Nothing happens while the project is busy.
    void OnCloseDocument() override;

    // A line on the host's status line.
    void StatusMessage(const std::string& text) const;
    // A message box owned by the main frame; a null caption is the component's own.
    int ProjectMessageBox(const std::string& text, const char* caption = nullptr,
                          win::UINT flags = win::MB_OK) const;
    // Sends a window a record of the component's own (sender 100, from the tree view's
    // window, first argument 0) and gives back the record's result.
    win::LRESULT SendProjectNotify(afx::CWnd* target, win::UINT code, afx::CDocument* doc = nullptr,
                                   int option = 0, win::LPARAM argument = 0) const;
    // The first view of a document, null if it has none.
    static afx::CView* GetFirstDocView(afx::CDocument* doc);
    // The frame of a document's first view, null if none; with notify the view is told
    // (code 309) that it is asked for.
    afx::CFrameWnd* GetDocFrame(afx::CDocument* doc, win::BOOL notify) const;
    // True if the document still has a live frame.
    win::BOOL IsDocAlive(afx::CDocument* doc) const;
    // A value of the suite's settings: the registry tree, or the settings file without it.
    std::string GetSuiteProfileString(const char* section, const char* entry,
                                      const char* defaultValue) const;

    // --- Open, save and close ---

    // Brings the read project into the host: tree, files, windows, netlist; 1 or 0.
    int LoadProject(const char* path, win::BOOL isNew);
    // The checks a project must pass before it loads; 1 or 0.
    int ValidateProject(win::BOOL isNew);
    // Shows the project dialog for the open project; 1 if it ran.
    int ModifyProject();
    // Takes the project dialog's values into the document and the project file; 1.
    int ApplyProjectSettings(const ProjectSettings& values);
    // Stores the state of all open files: work files on a plain save, the real files
    // after the user's answers on a close; 1, or 0 if the user stopped it.
    int SaveProjectState(win::BOOL closing, win::BOOL crash);
    // The project's save: its date and top schematic by key, the work files, the tree
    // and the netlist; 1 when all is up to date.
    int UpdateProject(win::BOOL markModified);
    // Saves, closes the project's windows and gives back the lock; 0 if refused.
    int CloseProject();
    // Gives a host document its title, with the project's name in front when it belongs.
    void SetDocTitle(afx::CDocument* doc, win::BOOL inProject, const char* text);
    // The lock file beside a project file: "~%" in front of its name, which keeps its
    // length from 11 characters on.
    static std::string GetLockFileName(const std::string& path);

    // --- Crash recovery ---

    // The host is dying (code 329): saves into the work folder, keeps it and notes it in
    // the project file and the profile; 1.
    int OnFatalError(ProjectNotify* record);
    // Before a project file is read: offers the files a crash left behind; 0 if refused.
    int CheckCrashRecovery(const char* projectPath);
    // Copies the files of a kept work folder into the project's folder; 0 without a path.
    int RecoverFiles(const char* folder);

    // --- Project file ---

    // Reads the project file line by line into the fields and mruFiles; 0 when it can't be
    // opened or the simulator test fails. `owner` gets the file's Owner line.
    int ReadProjectFile(const char* path, std::string& owner);
    // Writes the whole of [Project] and the search paths by key into the path name's file.
    void WriteProjectKeys();
    // relativePath: the way from the project file's folder to the top schematic's folder.
    void ComputeRelativePath();

    // --- Search paths ---

    // Reads SearchPath0.. of the path name's file into `out` and searchPaths; 1.
    int LoadSearchPaths(std::vector<std::string>& out);
    // Writes the list as SearchPath0.. into the file and copies it to searchPaths; 1.
    int StoreSearchPaths(const char* file, const std::vector<std::string>& list);
    // Opens the top level schematic in the host as the editor's channel; 1 or 0.
    int OpenTopSchematic();
    // Tells the schematic editor to forget the project's search paths.
    void SendRemovePaths();
    // Tells the schematic editor the project's search paths.
    void SendAddPaths();
    // "<folder>+<symbol file>": adds a picked symbol's folder to the search paths; 1 if
    // the list changed. Writes into the text.
    int AddSymbolSearchPath(char* text);

    // --- Work files ---

    // The work file of a path (the work folder exists afterwards); empty for null.
    std::string GetWorkFile(const char* path);
    // Copies the document's real file over its work file; 1, or 0 without a file.
    int RefreshWorkFile(afx::CDocument* doc);
    // Writes the document into its work file; it stays modified and on its real path.
    int SaveToWorkFile(afx::CDocument* doc);
    // The real path of a path that may lie in a work folder.
    void GetRealFile(const char* path, std::string& out) const;
    // Deletes folder + name if it is an output file; 1 if it was one.
    int DeleteOutputFile(const char* folder, const char* name);
    // Deletes a folder's files that match the pattern and tries to remove it; 0 if refused.
    int CleanFolder(const char* folder, const char* pattern);
    // Empties and removes a work folder (the project's own when null).
    int RemoveWorkFolder(const char* folder);
    // Moves base.sch and base.sym into the work folder; 1 if both moved.
    int SetAsideSchematic(const char* base);
    // Moves the work copies of base.sch and base.sym back.
    void RestoreSchematic(const char* base);

    // --- Simulators and templates ---

    // The simulator test at the Simulator line: reads the index into simulator, makes
    // simulatorInfo and checks it against the installed simulators; 1 passes, 0 fails.
    int TestSimulator(const char* value);
    // Fills the combo box with the installed simulators' templates; 0 without any.
    int FillSimulatorList(afx::CComboBox& combo);
    // Makes the netlist file with its header if it is missing; 0 if tools are off or it
    // can't be made.
    int WriteNetlistHeader();
    // Opens the simulator template document; 1 opened, 0 failed, -1 disabled.
    int OpenSimulatorTemplate();
    // The template document has gone: forgets it and gives the frame its menu back; 1.
    int ForgetSimulatorTemplate();
    // Asks the template's view (code 334); 0 without a view.
    win::LRESULT QueryTemplateView(win::LPARAM value);
    // Asks the template's view whether it may close (code 235); 1 without a view.
    win::LRESULT CanCloseTemplate();
    // Takes the host's menu of the record and adds the Layout and Parts menus.
    void SetupTemplateMenus(ProjectNotify* record);
    // Merges the template's menus into the host menu that is about to show.
    void MergeTemplateMenus(ProjectNotify* record);

    // --- Window layout ---

    // Stores the open files with their windows and the documentation files.
    void SaveWindowLayout();
    // Writes one [MRU List] line for the document's window.
    void SaveWindow(afx::CDocument* doc, const char* file);
    // Shows the tree pane and brings all windows of openDocs to their places.
    void RestoreWindows();
    // Places one document's window as the file's [MRU List] says.
    void RestoreWindow(afx::CDocument* doc, const char* file);
    // The show state for child windows from the profile, 9 if missing.
    int GetChildShowCmd();
    // Stores 3 if the active child frame is maximised, else 9.
    void StoreChildShowCmd();

    // --- Schematic records ---

    // Opens a file of the project, or brings up its open document; null on failure.
    afx::CDocument* OpenFile(const char* path, int force);
    // The record of a name or a path of the same file; null if there is none.
    SchematicNode* FindSchematicByPath(const char* nameOrPath);

    // --- Tool chain and schematic tree ---

    // Calls a tool of the suite with the project's command line (TF_... flags, the extra
    // arguments before the target): the tool's result, 0 for success; 1 while the tools
    // are off; -1 for a read-only log; -2 when the library can't be loaded or has no main.
    int RunTool(const std::string& toolName, win::UINT flags,
                const std::vector<std::string>& extraArguments = {});
    // Runs treescan into the listing (the project's own when empty); 1 when the tree
    // could be listed, else 0 with a stub listing in its place.
    int BuildTree(std::string& listingPath);
    // Lists the hierarchy anew and, when the listing changed, reads it into the tree and
    // the records; 1 when it came from treescan or a stub stands for a schematic yet to
    // be drawn.
    int UpdateTree();
    // Reads a listing into the tree and the records, linking the open documents to them;
    // 0 when it can't be opened.
    int ReadListing(const std::string& listingPath);
    // Writes the listing of the top level alone as `id`.st% in the current folder (into
    // `listingPath`), unless a non-empty one is there; 1 when written.
    int WriteStubListing(const std::string& id, std::string& listingPath, win::BOOL markValid);
    // Writes an empty top level schematic if there is none; 1 when it exists afterwards.
    int WriteStubSchematic();
    // Forgets every schematic record.
    void ClearSchematics();
    // The path of the record a tree item's text names ("name  [tag]"); empty for none.
    std::string FindSchematicByText(const std::string& text) const;
    // The record itself that a tree item's text names; null for none.
    SchematicNode* SchematicOfText(const std::string& text);
    // Brings up or opens the schematic at `path` as the instance the tree item's `text`
    // names; the document, or null.
    afx::CDocument* OpenSchematicInstance(const std::string& path, const std::string& text);
    // A host document joins the project: its record (when given) notes it, it enters
    // openDocs (schematics and symbols at the head), its view reports to the tree view, and
    // its window takes its saved place (hidden while the project is busy).
    void Attach(SchematicNode* record, afx::CDocument* doc);
    // The path of the next record that lists the symbol, walking the records from
    // `position` (empty to begin; empty again when the walk has ended); empty for none.
    std::string FindSymbolUser(const std::string& symbolPath, std::string& position) const;
    // Adds a documentation file under the "Documentation" node. With `remember` the path
    // is taken into pdfFiles; without, it must be an entry of pdfFiles already. The item's
    // data word points at the entry, which holds the bare file name for a file in the
    // project's folder.
    void AddDocument(std::string& pathString, win::BOOL remember);
    // 1 when no output file of the project is read-only, else 0 after telling the user;
    // once one was found read-only the answer stays 0.
    int CheckOutputsWritable();
    // Brings the netlist up to date with the schematics; 0 when the template can't be
    // opened, else 1.
    int RefreshAndNetlist();
    // Runs the simulator's translator into the netlist file; the tool's result, or 0
    // during a tuning run.
    int RunNetlist();
    // Raises lastLibIndex to the highest "_lib<number>" in the project's schematics.
    void ScanLibIndexes();
    // The next free library number (message 0x14C to the tree view).
    int NextLibIndex();

    // --- Host notifications ---

    // The record of a host document: the one it is open in, else the one for its path;
    // null for a null document.
    SchematicNode* FindDocNode(afx::CDocument* doc);
    // Code 200: a host document has opened and joins the project; a schematic opened
    // alone is warned about first. The template's view brings its menu along.
    void OnDocumentOpened(ProjectNotify* record);
    // Code 201: a host document closes and leaves the project, which is stored when the
    // document was one of its schematics and was modified.
    void OnDocumentClosing(ProjectNotify* record);
    // A document leaves openDocs (it stays during a save-all); activeDoc passes to the
    // first other document before it.
    void Detach(afx::CDocument* doc);
    // Code 202: a host document was saved; the project is stored, or, when the document
    // now has a name of its own, its record lets it go with a warning.
    void OnDocumentSaved(ProjectNotify* record);
    // Warns that a project schematic was saved under a new name.
    void WarnSaveAsNewName();
    // Code 234: the document's title, with the project's name when it belongs.
    void OnDocumentTitle(ProjectNotify* record);
    // Closes the open document of the first record for the same file as `path`; 1 if
    // one was closed.
    int CloseDocumentByPath(const char* path);
    // Code 231 from the tool bar: the host's menus follow the tool bar's customizing, and
    // the editors are told.
    void OnCustomizing(ProjectNotify* record);
    // Puts the host's menus into a mode (option 1) or back (any other value); leaving
    // with 0 brings the active child frame up and tells it so (code 309).
    void SetHostMenuMode(int option);
    // Code 248: closes the simulator's netlist document. 0 none open, 1 it refused, 2
    // closed, 3 left open because a project with schematics is open.
    win::LRESULT CloseNetlistDocument();
    // Codes 314 and 315 for the device library's window; true when the library's window
    // took the request and the hub answers no further.
    win::BOOL OnDeviceLibrary(ProjectNotify* record);
    // Closes the frame of every document of the project.
    void CloseAllFrames();
    // The simulator of the project, null while none is chosen.
    const SimulatorInfo* ChosenSimulator() const;

    // Codes 216, 218, 219 and 221 from the template's view tell of the simulator's runs;
    // the project updates itself and passes the report on to the active schematic's view.
    // Each answers 1 when the record was passed on or there was nothing to do, else 0.
    int OnAnalysisReport(ProjectNotify* record);
    // Tuning and optimizing; `text` holds one "%s" for "started" or "ended".
    int OnTuningReport(ProjectNotify* record, const char* text);
    int OnSmithToolReport(ProjectNotify* record);
    // Keeps the code of a started run for a schematic that opens later (replayCode).
    void NotePendingReport(win::BOOL state, win::UINT code);

  private:
    // Takes the lock file of the path name's project into lockFile; lockHeld tells
    // whether it was had.
    win::BOOL TakeLockFile();
    // Gives the lock back and removes its file; nothing happens without a lock.
    void ReleaseLockFile();

    // The listing reader: one pass over treeStream, line by line in `line`. Each part
    // leaves the line it stopped at for the next.
    bool ReadTreeLine();
    int ReadHierarchy();
    void ReadLevels(win::HTREEITEM topItem);
    win::HTREEITEM AddHierarchyItem(win::HTREEITEM parent, int level);
    void CreateRecord(std::string_view name, const std::string& path, win::HTREEITEM item);
    // Makes the record of a place of the reader's index that holds none yet.
    void FileRecord(SchematicNode*& record, const std::string& key, const std::string& path,
                    win::HTREEITEM item);
    void ReadFileList();
    void LinkOpenDocuments();
    void FillDocumentationNode();
    // Tells the active document's view of a report that waits for the new document.
    void Replay(afx::CDocument* doc);
    // The reader's working state while a listing is read: its block of the file, an index
    // of the records made so far, and the strings each line is taken apart into.
    ListingScratch* listingScratch = nullptr;

    // appKey and registryKey: the registry tree when it has a "Simulator" value, else the
    // application's settings file.
    void ChooseSettingsStore();
    // HKEY_LOCAL_MACHINE\Software\<registryKey>\<appKey>, made when missing; null on failure.
    win::HKEY GetSuiteRegistryKey() const;
    // The section's key below it, made when missing; null on failure.
    win::HKEY GetSuiteSectionKey(const char* section) const;
};

}  // namespace velorand
