// Every control that Corvane offers, for hosts that want one include.
#pragma once

#include "corvane/controls/BatchString.h"
#include "corvane/controls/ControlEnumerations.h"
#include "corvane/controls/Corvane.h"
#include "corvane/controls/ID3v1.h"
#include "corvane/controls/ID3v2.h"
#include "corvane/controls/Lyrics.h"
#include "corvane/controls/PropertyBag.h"
#include "corvane/controls/Translation.h"
#include "corvane/controls/cTextBox.h"
