// Marks what the shared library of the controls offers; everything else is hidden.
#pragma once

#define CORVANE_CONTROLS_EXPORT __attribute__((visibility("default")))
