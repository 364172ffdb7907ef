#include "ui/logic/ToolbarCommands.h"

#include "ui/logic/CommandTable.h"

namespace zv {

std::span<const int> MainViewToolbarCommands() {
    static const int anCommands[] = {
        CmdSelectRoots,     CmdSave,        CmdRescan, CmdDisplayParent, CmdOpenAllFolders,
        CmdCloseAllFolders, CmdFind,        CmdPrint,  CmdDeleteRecycle, CmdComputeCrc,
        CmdViewOwner,       CmdViewVersion, CmdStop,
    };
    return anCommands;
}

}  // namespace zv
