// The copy behind treescan's -a: the files of a project land side by side in one folder,
// so that the folder alone, as the copy's search path, finds them all.
#pragma once

#include <string>
#include <vector>

#include "suite/tool_log.h"

namespace suite {

// Copies each file to the folder under its file name, overwriting. A second file of the
// same name is left out with a note: the first is the one a search would have found. A
// file that can't be copied fails through the log, and the others are still copied.
void CopyFilesFlat(const std::vector<std::string>& files, const std::string& folder, ToolLog& log);

}  // namespace suite
