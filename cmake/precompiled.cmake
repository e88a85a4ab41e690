# Headers of others that most sources need, compiled once a kind of target: `core` for src/, `driver`
# with JSON, `window` with the toolkit, `tests` and `window_tests` with their framework. Our own headers are never
# among them: a change to one would compile everything again.
set(GEXLO_HEADERS_core
    <algorithm> <array> <cmath> <cstdint> <filesystem> <functional> <map> <memory> <optional> <set>
    <span> <string> <string_view> <tuple> <utility> <variant> <vector>)
set(GEXLO_HEADERS_driver ${GEXLO_HEADERS_core} <nlohmann/json.hpp>)
set(GEXLO_HEADERS_window ${GEXLO_HEADERS_core} <QGuiApplication> <QImage> <QPainter> <QPointer>
                         <QTimer>)
set(GEXLO_HEADERS_tests ${GEXLO_HEADERS_driver} <gtest/gtest.h> <random> <sstream>)
set(GEXLO_HEADERS_window_tests ${GEXLO_HEADERS_tests} <QGuiApplication> <QImage>)
# What those headers need to be found, beside what src/ needs.
set(GEXLO_LIBRARIES_window gexlo_toolkit)
set(GEXLO_LIBRARIES_tests GTest::gtest gexlo_unoptimised)
set(GEXLO_LIBRARIES_window_tests GTest::gtest gexlo_toolkit gexlo_unoptimised)

# gexlo_precompile(target kind): the target's sources take the kind's headers precompiled, by a
# library of their own that no other definitions reach.
function(gexlo_precompile target kind)
  if(NOT TARGET gexlo_headers_${kind})
    add_library(gexlo_headers_${kind} OBJECT ${PROJECT_SOURCE_DIR}/cmake/precompiled.cpp)
    target_link_libraries(gexlo_headers_${kind} PRIVATE gexlo_warnings gexlo_dependencies
                                                        ${GEXLO_LIBRARIES_${kind}})
    target_precompile_headers(gexlo_headers_${kind} PRIVATE ${GEXLO_HEADERS_${kind}})
  endif()
  target_precompile_headers(${target} REUSE_FROM gexlo_headers_${kind})
endfunction()
