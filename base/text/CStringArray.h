#pragma once

#include "base/text/CArray.h"
#include "base/text/CString.h"

/// The framework's growing array of strings.
class CStringArray : public CArray<CString, const CString&> {};
