#include "CommonOptions.h"

void CommonOptions::AddTo(CLI::App& command, const std::string& jsonHelp)
{
    constexpr const char* kGroup = "Common options";
    command.add_option("--data", dataDirectory, "Directory of the main database and the catalogue")
        ->type_name("DIR")
        ->group(kGroup);
    command.add_option("--user", userDirectory, "Directory of the user database; made when missing")
        ->type_name("DIR")
        ->group(kGroup);
    command.add_option("--module", module, "The coordinate system module to load")->type_name("FILE")->group(kGroup);
    command.add_flag("--json", json, jsonHelp)->group(kGroup);
}
