// A stand-in diff program: writes the arguments it was given after the
// first, each ended by a NUL, into the file named by the first. It runs
// nothing, so anything else that happens came from the starter.
#include <fstream>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>
#endif

int main(int argc, char** argv) {
    std::vector<std::string> aArgs;
#ifdef _WIN32
    // The wide command line as Windows programs split it, in UTF-8.
    (void)argc;
    (void)argv;
    int nArgs = 0;
    wchar_t** ppArgs = CommandLineToArgvW(GetCommandLineW(), &nArgs);
    for (int i = 0; i < nArgs; ++i) {
        const int nBytes =
            WideCharToMultiByte(CP_UTF8, 0, ppArgs[i], -1, nullptr, 0, nullptr, nullptr);
        std::string strArg(static_cast<size_t>(nBytes), '\0');
        WideCharToMultiByte(CP_UTF8, 0, ppArgs[i], -1, strArg.data(), nBytes, nullptr, nullptr);
        strArg.resize(strArg.size() - 1);
        aArgs.push_back(strArg);
    }
    LocalFree(ppArgs);
#else
    for (int i = 0; i < argc; ++i) aArgs.emplace_back(argv[i]);
#endif
    if (aArgs.size() < 2) return 2;
    std::ofstream out(aArgs[1], std::ios::binary);
    for (size_t i = 2; i < aArgs.size(); ++i) out << aArgs[i] << '\0';
    return out ? 0 : 2;
}
