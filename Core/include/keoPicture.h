#pragma once

/**
 * @file
 * @brief Everything of keoPicture: pictures of entities in a map or oblique view, written as PNG,
 * SVG or PDF.
 */

#include "Picture/Format.h"
#include "Picture/ObliqueCamera.h"
#include "Picture/Options.h"
#include "Picture/PictureError.h"
#include "Picture/PictureExport.h"
#include "Picture/Raster.h"
#include "Picture/Renderer.h"
#include "Picture/Report.h"
#include "Picture/View.h"
