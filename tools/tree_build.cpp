// The rebuild of the schematic tree: `treescan` lists the hierarchy below the top level
// schematic, and the listing is read only when it differs from the one before.
#include <filesystem>
#include <fstream>

#include "core/project_doc.h"
#include "platform/afx/wnd.h"
#include "platform/win/file_attributes.h"
#include "platform/win/files.h"
#include "platform/win/message_box.h"
#include "platform/win/paths.h"
#include "platform/win/private_profile.h"
#include "platform/win/text_stream.h"
#include "tools/files_equal.h"
#include "tools/tool_launcher.h"

namespace velorand {

namespace {

bool FileExists(const std::string& path) {
    return win::GetFileAttributes(path.c_str()) != win::INVALID_FILE_ATTRIBUTES;
}

// The size of a file; 0 when it is missing.
std::uintmax_t FileSize(const std::string& path) {
    std::optional<std::string> posix = win::PosixPath(win::FullPlatformPath(path));
    std::error_code error;
    std::uintmax_t size = posix ? std::filesystem::file_size(*posix, error) : 0;
    return error ? 0 : size;
}

std::string FileNameOf(const std::string& path) {
    return path.substr(path.rfind('\\') + 1);
}

}  // namespace

int CProjectDoc::BuildTree(std::string& listingPath) {
    treeValid = 0;
    std::string schematic = topLevelSchematic;
    if (schematic.empty())
        return 0;
    StatusMessage("Building Schematic Tree...");
    if (topLevelSchematic.size() < 2 || topLevelSchematic[1] != ':' ||
        !FileExists(topLevelSchematic)) {
        topLevelSchematic = location + FileNameOf(topLevelSchematic);
        win::WritePrivateProfileString("Project", "TopLevelSchematic", topLevelSchematic.c_str(),
                                       GetPathName().c_str());
    }
    if (listingPath.empty())
        listingPath = location + projectID + ".st%";
    win::DeleteFile(listingPath.c_str());

    int result = kToolLogReadOnly;
    win::DWORD attributes = win::GetFileAttributes(listingPath.c_str());
    if (attributes == win::INVALID_FILE_ATTRIBUTES ||
        (attributes & win::FILE_ATTRIBUTE_READONLY) == 0)
        result = RunTool("treescan", TF_PATHS | TF_TREE_LOG, {"-l", "-sh", "-o" + listingPath});

    if (result == 0 && (FileSize(listingPath) != 0 || FileSize(schematic) != 0)) {
        treeValid = 1;
        return 1;
    }
    WriteStubListing(projectID, listingPath, 0);
    if (!commandTest)
        ProjectMessageBox("Unable to build project tree for:\n\n" + topLevelSchematic, nullptr,
                          win::MB_ICONEXCLAMATION);
    treeValid = 0;
    return 0;
}

int CProjectDoc::WriteStubListing(const std::string& id, std::string& listingPath,
                                  win::BOOL markValid) {
    // No folder: the project's folder is the current one while a project loads.
    listingPath = id + ".st%";
    if (FileSize(listingPath) != 0)
        return 0;
    std::ofstream out;
    if (!win::OpenTextStream(out, listingPath.c_str(), std::ios::trunc))
        return 0;
    std::string::size_type slash = topLevelSchematic.rfind('\\') + 1;
    std::string::size_type dot = topLevelSchematic.rfind('.');
    std::string base = topLevelSchematic.substr(
        slash, dot == std::string::npos || dot < slash ? std::string::npos : dot - slash);
    out << "~ " << base << " (" << topLevelSchematic << ")";
    out.close();
    WriteStubSchematic();
    if (markValid)
        treeValid = 1;
    return 1;
}

int CProjectDoc::WriteStubSchematic() {
    if (FileExists(topLevelSchematic))
        return 1;
    std::ofstream out;
    if (!win::OpenTextStream(out, topLevelSchematic.c_str(), std::ios::trunc))
        return 0;
    out << "[schematic2]\nver 40\n\n[tools]\n[detail]\n[cell use]\n[comments]\n"
        << "ProjectName=" << projectID << "\nDirectory=" << location << "\nSimulator=" << simulator
        << "\n";
    return 1;
}

int CProjectDoc::UpdateTree() {
    std::string listing = location + projectID + ".st%";
    std::string listingCopy = location + projectID + ".scf";
    win::CopyFile(listing.c_str(), listingCopy.c_str(), win::FALSE);

    int result;
    if (FileExists(topLevelSchematic)) {
        result = BuildTree(listing);
    } else {
        std::string relative = relativePath + FileNameOf(topLevelSchematic);
        if (FileExists(relative)) {
            topLevelSchematic = win::FullPlatformPath(relative);
            result = BuildTree(listing);
        } else {
            win::DeleteFile(listing.c_str());
            result = WriteStubListing(projectID, listing, 1);
        }
    }
    if (result == 0) {
        win::DeleteFile(listing.c_str());
        WriteStubListing(projectID, listing, 0);
    }

    // A listing equal to the last one leaves the tree and the records as they stand.
    if (!FilesEqual(listing, listingCopy) && !ReadListing(listing))
        return 0;
    win::DeleteFile(listingCopy.c_str());
    return result;
}

}  // namespace velorand
