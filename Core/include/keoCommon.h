#pragma once

/**
 * @file
 * @brief Everything of keoCommon: angles, vectors and matrices, geodesy on the WGS84 ellipsoid,
 * colours, the log, identifiers and the exception type.
 */

#include "Common/BoundingSphere.h"
#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/CommonExport.h"
#include "Common/Degree.h"
#include "Common/Ellipsoid.h"
#include "Common/GlobeRectangle.h"
#include "Common/HeadingPitchRoll.h"
#include "Common/InvalidParametersException.h"
#include "Common/Log.h"
#include "Common/LogLevel.h"
#include "Common/LogRecord.h"
#include "Common/LogSink.h"
#include "Common/Math.h"
#include "Common/Matrix2.h"
#include "Common/Matrix3.h"
#include "Common/Matrix4.h"
#include "Common/MemoryLogSink.h"
#include "Common/Quaternion.h"
#include "Common/Radian.h"
#include "Common/SourceLocation.h"
#include "Common/StderrLogSink.h"
#include "Common/Uuid.h"
#include "Common/Vector2.h"
#include "Common/Vector3.h"
#include "Common/Vector4.h"
