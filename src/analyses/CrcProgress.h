// The progress texts of a whole-file checksum. Only files of 1 GiB or more
// report progress: the main window's status line says how far the checksum
// has come, and the user interface is kept alive by pumping messages unless
// the checksum threads are working (workers never pump).
#pragma once

#include <string>

namespace zv {

class CCrcProgress {
public:
    CCrcProgress(const std::u16string& strPath, double dSize);

    bool IsOn() const { return m_bOn; }
    // Counts bytes read; on a change of the percentage, sets the status
    // text and pumps as the rules say.
    void Add(double dBytes);

    // The files from which progress is reported.
    static constexpr double kThreshold = 1073741824.0;

private:
    std::u16string m_strPath;
    double m_dSize;
    double m_dDone = 0;
    int m_nShown = -1;
    bool m_bOn;
};

// The status text while a checksum runs: "calculating crc 5% for <path>\n".
std::u16string CrcProgressText(int nPercent, const std::u16string& strPath);
// The path of the main document's current directory; empty without one.
std::u16string CurrentDirectoryText();

}  // namespace zv
