// The object interface, all of it.
#pragma once

#include "brisel/object_interface/base_legacy_label.h"
#include "brisel/object_interface/cubic_bezier_curve.h"
#include "brisel/object_interface/dictionaries.h"
#include "brisel/object_interface/dynamic_type.h"
#include "brisel/object_interface/fitting.h"
#include "brisel/object_interface/fonts.h"
#include "brisel/object_interface/icon_images.h"
#include "brisel/object_interface/icons.h"
#include "brisel/object_interface/images.h"
#include "brisel/object_interface/legacy_label.h"
#include "brisel/object_interface/shape_images.h"
#include "brisel/object_interface/text_views.h"
#include "brisel/object_interface/themes.h"
#include "brisel/object_interface/tokens.h"
#include "brisel/object_interface/type_styles.h"
#include "brisel/object_interface/view_sizing.h"
