#include "base/geoid/GeoidModel.h"

GeoidModel::~GeoidModel() = default;
