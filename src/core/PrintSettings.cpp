#include "core/PrintSettings.h"

namespace zv {

CPrintSettings::CPrintSettings() {
    m_aFlags.fill(1);
    m_aFlags[PrintNoFiles] = 0;
    m_aFlags[PrintNoDirs] = 0;
    m_aFlags[PrintNameSeparateColumn] = 0;
    m_printFont.m_nHeight = -12;
    m_printFont.m_nWeight = 400;
    m_printFont.m_strFaceName = u"Arial Unicode MS";
}

}  // namespace zv
