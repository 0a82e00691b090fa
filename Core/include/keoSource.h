#pragma once

/**
 * @file
 * @brief Everything of keoSource: vector files read through GDAL/OGR into checked records, the
 * JSON style sheet and its expression language, and the live source that turns records into
 * styled features.
 */

#include "Source/AttributeType.h"
#include "Source/Expression.h"
#include "Source/Field.h"
#include "Source/GeometryKind.h"
#include "Source/LoadOptions.h"
#include "Source/LoadReport.h"
#include "Source/PolygonRings.h"
#include "Source/ReadOptions.h"
#include "Source/Reader.h"
#include "Source/Record.h"
#include "Source/RecordGeometry.h"
#include "Source/RecordSet.h"
#include "Source/ResolvedExtrusionStyle.h"
#include "Source/ResolvedLabel.h"
#include "Source/ResolvedMaterial.h"
#include "Source/ResolvedPointStyle.h"
#include "Source/ResolvedPolygonStyle.h"
#include "Source/ResolvedPolylineStyle.h"
#include "Source/ResolvedStyle.h"
#include "Source/SourceExport.h"
#include "Source/StyleSheet.h"
#include "Source/Value.h"
#include "Source/VectorSource.h"
