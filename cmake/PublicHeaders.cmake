# What hosts may include lies below include/tessaron and nowhere else: installed as it is, and compiled each by itself by
# tests/install. The names are those after `include/`.
file(GLOB_RECURSE TESSARON_PUBLIC_HEADERS CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}/include"
  "${PROJECT_SOURCE_DIR}/include/tessaron/*.h")

# Those that are C as well as C++.
set(TESSARON_PUBLIC_C_HEADERS
  tessaron/c/Common.h
  tessaron/c/CuttingData.h
  tessaron/c/Inputs.h
  tessaron/c/Jobs.h
  tessaron/c/Parameters.h
  tessaron/c/Templates.h
  tessaron/c/Toolpaths.h
  tessaron/frame/PlainEntryPoints.h
  tessaron/util/Export.h)
