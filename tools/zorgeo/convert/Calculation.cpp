#include "convert/Calculation.h"

Calculation::~Calculation() = default;
