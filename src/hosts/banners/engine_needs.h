// What the engine needs of a machine. Where something is missing it ends the whole program, so it is asked before.
#pragma once

#include <QString>

namespace ombrin::banners {

/// Empty where there is everything.
QString WhatTheEngineLacks();

} // namespace ombrin::banners
