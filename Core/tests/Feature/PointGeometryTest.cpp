#include "Feature/PointGeometry.h"

#include <gtest/gtest.h>
