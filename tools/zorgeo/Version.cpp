#include "Version.h"

const char* Version()
{
    return ZORGEO_VERSION;
}
