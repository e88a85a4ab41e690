# gexlo_subsystem(name sources...): one object library for a folder of src/,
# which the library gexlo gathers.
function(gexlo_subsystem name)
  add_library(gexlo_${name} OBJECT ${ARGN})
  target_include_directories(gexlo_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(gexlo_${name} PRIVATE gexlo_warnings gexlo_dependencies)
  gexlo_precompile(gexlo_${name} core)
  target_sources(gexlo PRIVATE $<TARGET_OBJECTS:gexlo_${name}>)
endfunction()
