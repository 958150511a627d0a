// Marks what the shared library offers; everything else is hidden.
#pragma once

#define CORVANE_EXPORT __attribute__((visibility("default")))
