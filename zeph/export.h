/// What the library shows to others; the rest of it is hidden.
#pragma once

#define ZEPH_MATH3D_API __attribute__((visibility("default")))
