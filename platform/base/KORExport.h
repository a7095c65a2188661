// Marks what the platform layer hands out when it is built as a shared library.
#pragma once

#define KORPLATFORM_API __attribute__((visibility("default")))
