// What the library shows, and nothing else.
#pragma once

#define OMBRIN_API __attribute__((visibility("default")))
#define OMBRIN_INSIDE __attribute__((visibility("hidden")))
