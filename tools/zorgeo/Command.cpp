#include "Command.h"

Command::~Command() = default;
