// Everything that Corvane publishes, for hosts that want one include.
#pragma once

#include "corvane/Version.h"
#include "corvane/core/TagError.h"
#include "corvane/core/cError.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/MessageBox.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/platform/Variant.h"
#include "corvane/xml/XmlNode.h"
