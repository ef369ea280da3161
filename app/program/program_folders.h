// Where the program's companions lie: an installation is one folder holding bin/ with
// the program, lib/ with the component and the suite's tools, siblings/ with the suite's
// sibling libraries, and share/velorand/ with the example projects.
#pragma once

#include <string>

namespace velorand::program {

// The folder that holds the program's bin/; empty when the program can't be found.
std::string InstallFolder();

// Adds lib/ and siblings/ of the installation behind the folders already in
// VELORAND_LIBRARY_PATH, so that the program and the libraries it loads find them
// without help.
void AddLibraryFolders();

// share/velorand/examples of the installation.
std::string ExamplesFolder();

}  // namespace velorand::program
