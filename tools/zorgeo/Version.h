#pragma once

/// The project's version, "1.2.3".
const char* Version();
