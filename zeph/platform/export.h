/// What the platform library shows to others; the rest of it is hidden.
#pragma once

#define ZEPH_PLATFORM_API __attribute__((visibility("default")))
