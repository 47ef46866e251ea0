#pragma once

#include "e2e/driver.h"

#include <windows.h>

#include <shlobj.h>

#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace nv
{

// The path of what was built, from its path as seen from the program of the tests.
inline std::string FromTests(const std::string& path)
{
    char own[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, own, sizeof own);
    const std::string whole = own;
    return whole.substr(0, whole.rfind('\\') + 1) + path;
}

// What a recorder has written at path, in lines, taken once; see recorder.cpp. Polls; empty when
// none came within so many milliseconds.
inline std::vector<std::string> TakeRecord(const std::string& path, DWORD within = 10000)
{
    std::vector<std::string> lines;
    const auto read = [&] {
        // It has its name a moment before it can be opened.
        std::ifstream file(path, std::ios::binary);
        for (std::string line; std::getline(file, line);) {
            lines.push_back(line);
        }
        return !lines.empty();
    };
    if (e2e::Until(read, within)) {
        EXPECT_TRUE(e2e::Until([&] { return DeleteFileA(path.c_str()) != FALSE; }));
    }
    return lines;
}

// The bytes of a file; of one that cannot be read, none.
inline std::string Contents(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// As the shell does when files are dropped on a window of this process; at: a point of the screen.
inline void DropFiles(HWND window, const std::vector<std::string>& paths, POINT at)
{
    std::string names;
    for (const std::string& path : paths) {
        names += path + '\0';
    }
    names += '\0';
    ScreenToClient(window, &at);
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + names.size());
    auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
    drop->pFiles = sizeof(DROPFILES);
    drop->pt = at;
    std::memcpy(drop + 1, names.data(), names.size());
    GlobalUnlock(memory);
    SendMessageA(window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
}

// The files and folders in a folder.
inline std::vector<WIN32_FIND_DATAA> FilesIn(const std::string& folder)
{
    std::vector<WIN32_FIND_DATAA> files;
    WIN32_FIND_DATAA found = {};
    const HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
    for (BOOL more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileA(search, &found)) {
        files.push_back(found);
    }
    FindClose(search);
    std::erase_if(files, [](const WIN32_FIND_DATAA& file) {
        return file.cFileName == std::string(".") || file.cFileName == std::string("..");
    });
    return files;
}

// A folder of the test's own below the system's temporary folder; gone with all in it afterwards.
class ScratchFolder
{
public:
    ScratchFolder()
    {
        char temporary[MAX_PATH] = {};
        char name[MAX_PATH] = {};
        GetTempPathA(MAX_PATH, temporary);
        EXPECT_NE(GetTempFileNameA(temporary, "nvt", 0, name), 0u);
        path_ = name;
        DeleteFileA(name);
        EXPECT_TRUE(CreateDirectoryA(name, nullptr));
    }
    ~ScratchFolder() { RemoveAll(path_); }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& Path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + "\\" + name; }

private:
    static void RemoveAll(const std::string& folder)
    {
        for (const WIN32_FIND_DATAA& found : FilesIn(folder)) {
            const std::string path = folder + "\\" + found.cFileName;
            if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
                RemoveAll(path);
            } else {
                SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
                DeleteFileA(path.c_str());
            }
        }
        RemoveDirectoryA(folder.c_str());
    }

    std::string path_;
};

} // namespace nv
