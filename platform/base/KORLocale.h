// The locale that number input uses on the calling thread.
#pragma once

#include "platform/base/KORExport.h"

/// The decimal character of the locale in force on this thread (uselocale, else setlocale); U+0000 if the locale names
/// none. Cheap, and safe on several threads at once as long as none of them changes the locale of the process.
KORPLATFORM_API wchar_t KORLocalDecimalCharacter();
