// Text files as the component's line readers and writers use them. Reading accepts lines
// ending in CR LF or LF; writing ends lines with LF. Every byte passes through untouched.
#pragma once

#include <fstream>
#include <istream>
#include <string>

#include "platform/win/types.h"

namespace win {

// Opens a file for reading. FALSE when it cannot be read: error 2 or 3 when it is
// missing, 5 for a folder, 161 for a bad path.
BOOL OpenTextStream(std::ifstream& stream, LPCSTR fileName);

// Opens a file for writing, made when missing; `mode` is std::ios::trunc to start afresh
// or std::ios::app to add at the end. FALSE with error 5 for a read-only file, a folder or
// a read-only folder, 3 when a folder on the way is missing, 161 for a bad path.
BOOL OpenTextStream(std::ofstream& stream, LPCSTR fileName,
                    std::ios::openmode mode = std::ios::trunc);

// Reads the next line without its line end, a CR before the LF included. false at the end
// of the stream.
bool ReadTextLine(std::istream& stream, std::string& line);

}  // namespace win
