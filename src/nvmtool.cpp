// nvmtool.exe, for the command line: checks menus, lists their entries, and makes them of folders.
#include "mainwindow/command_line.h"
#include "system/form_fonts.h"
#include "tool/tool.h"
#include "version.h"
#include "win32/process.h"
#include "win32/screen.h"
#include "win32/win_files.h"
#include "win32/win_shell.h"

#include <windows.h>

#include <algorithm>
#include <exception>
#include <string>
#include <string_view>

namespace
{

nv::SystemError LastError()
{
    const DWORD error = GetLastError();
    return error != 0 ? error : ERROR_GEN_FAILURE;
}

// One of the two standard streams. A file or a pipe gets the bytes as they are, which is what Menu
// files hold. A console has a code page of its own, often another one: it gets characters.
class Stream
{
public:
    explicit Stream(DWORD which) : handle_(GetStdHandle(which))
    {
        DWORD mode = 0;
        isConsole_ = GetConsoleMode(handle_, &mode) != 0;
    }

    nv::SystemError Write(std::string_view text)
    {
        while (!text.empty()) {
            // Consoles of older systems take less than 64 KB at once.
            const std::string_view piece = page_.WholeCharacters(text, 0x2000);
            const nv::SystemError error = isConsole_ ? WriteCharacters(piece) : WriteBytes(piece);
            if (error != 0) {
                return error;
            }
            text.remove_prefix(piece.size());
        }
        return 0;
    }

private:
    nv::SystemError WriteBytes(std::string_view bytes)
    {
        while (!bytes.empty()) {
            DWORD count = 0;
            if (!WriteFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &count,
                           nullptr)) {
                return LastError();
            }
            if (count == 0) {
                return ERROR_DISK_FULL;
            }
            bytes.remove_prefix(count);
        }
        return 0;
    }

    nv::SystemError WriteCharacters(std::string_view bytes)
    {
        std::wstring wide(bytes.size(), L'\0');
        const int length =
            MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()),
                                wide.data(), static_cast<int>(wide.size()));
        DWORD count = 0;
        if (!WriteConsoleW(handle_, wide.data(), static_cast<DWORD>(length), &count, nullptr)) {
            return LastError();
        }
        return 0;
    }

    HANDLE handle_;
    bool isConsole_ = false;
    nv::CodePage page_ = nv::ProcessCodePage();
};

class StandardOutput : public nv::ToolOutput
{
public:
    nv::SystemError Write(std::string_view text) override { return output_.Write(text); }
    void Complain(std::string_view text) override { static_cast<void>(error_.Write(text)); }

private:
    Stream output_{STD_OUTPUT_HANDLE};
    Stream error_{STD_ERROR_HANDLE};
};

int Run(nv::ToolOutput& output)
{
    const nv::CodePage codePage = nv::ProcessCodePage();
    nv::WinFiles files;
    nv::WinShell shell;
    // Not the C library's arguments: it takes \" for a quote, and may expand wildcards or not.
    const nv::ToolRequest request =
        nv::ReadArguments(nv::SplitArguments(nv::ArgumentsOf(GetCommandLineA())), files, codePage);
    // Relative paths in links begin there. If that fails, they are not found.
    const std::string programFolder = nv::ProgramFolder();
    (void)SetCurrentDirectoryA(programFolder.c_str());
    return nv::RunTool(request, {files, shell, output, codePage, nv::FormFont(), programFolder,
                                 VER_TEXT, nv::ExpandVariables});
}

} // namespace

int main()
{
    nv::SetUpProcess();
    StandardOutput output;
    int code = 2;
    try {
        code = Run(output);
    } catch (const std::exception& fault) {
        output.Complain("nvmtool: " + std::string(fault.what()) + "\r\n");
    }
    return code;
}
