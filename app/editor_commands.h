// The schematic editor's command language: a line of commands that each begin with ':',
// separated by ';' (":set cpyinst 1;:read ~/trl.sch;:set cpyinst 0"). The commands:
//
//   :path <folder>+       the folder goes first in the editor's search folders
//   :path +<folder>       the folder goes last
//   :delpathdir <folder>  the folder leaves the search folders
//   :findsymbol <name>    selects the element with that instance name
//   :unselect             clears the selection
//   :property T <name>:<value>   sets the property of the selected element
//   :redraw               draws the view anew
//   :set <name> <value>   an editor setting; "cpyinst" 1 lets :read replace elements
//   :read <file>          takes the elements of a sheet ("~/" is the current folder)
//   :filtertool <design>  adds the elements of a design: elements separated by ',',
//   :smithtool <design>   each "<cell> <instance> <node>... <KEY>=<value>..."
//
// Folders and names compare without regard to case.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace velorand::host {

class CSchematicDoc;

// What a view's commands change besides its document.
struct EditorState {
    std::string selection;                        // the selected instance; empty for none
    std::map<std::string, std::string> settings;  // the values of :set
    int redraws = 0;
};

struct EditorContext {
    CSchematicDoc& document;
    EditorState& state;
    std::vector<std::string>& searchFolders;  // the editor's, shared by all its views
};

// The commands of a line: a ';' that a ':' follows ends one.
std::vector<std::string> SplitEditorLine(const std::string& line);

// Runs the commands of the line in order. It stops at the first that fails, with the
// reason in `error`; the commands before it have had their effect.
bool RunEditorLine(const std::string& line, EditorContext& context, std::string& error);

}  // namespace velorand::host
