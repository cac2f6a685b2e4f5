# How grx's own targets are compiled and linked.

function(grx_default_build_type type)
  get_property(multi GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
  if(NOT multi AND NOT CMAKE_BUILD_TYPE)
    set_property(CACHE CMAKE_BUILD_TYPE PROPERTY VALUE ${type})
  endif()
endfunction()

# grx_sources(VARIABLE PATTERN...): the files that match, seen again at every build.
function(grx_sources variable)
  list(TRANSFORM ARGN PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
  file(GLOB found CONFIGURE_DEPENDS ${ARGN})
  set(${variable} ${found} PARENT_SCOPE)
endfunction()

# The value of GRX_SANITIZE for -fsanitize=, or nothing.
function(grx_sanitizers variable)
  set(list "${GRX_SANITIZE}")
  if(list MATCHES "^(ON|on|TRUE|YES|1)$")
    set(list "address,undefined")
  elseif(list MATCHES "^(OFF|off|FALSE|NO|0)$")
    set(list "")
  endif()
  set(${variable} "${list}" PARENT_SCOPE)
endfunction()

# What everything here is compiled with: the language, the warnings, reproducible arithmetic.
add_library(grx_strict INTERFACE)
target_compile_features(grx_strict INTERFACE cxx_std_20 c_std_11)
target_compile_options(grx_strict INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion
  # clang counts sign changes among the conversions, g++ does not: one meaning for both.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>
  $<$<BOOL:${GRX_WERROR}>:-Werror>
  -ffp-contract=off)
grx_sanitizers(sanitizers)
if(sanitizers)
  target_compile_options(grx_strict INTERFACE
    -fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(grx_strict INTERFACE -fsanitize=${sanitizers})
endif()
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_EXTENSIONS OFF)

# What the library and the default host are compiled with on top of that.
function(grx_library_options target)
  target_link_libraries(${target} PRIVATE grx_strict)
  target_compile_options(${target} PRIVATE -fno-exceptions -fno-rtti -fno-threadsafe-statics
    # so that the stack tells which public function was called (system/public_call.h)
    -fno-optimize-sibling-calls)
  set_target_properties(${target} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# grx_version_script(FILE VERSION...): a linker script of the symbol versions in cmake/symbols, oldest first; each holds
# the names of its file.
function(grx_version_script file)
  set(before "")
  set(script "")
  foreach(version IN LISTS ARGN)
    set(list "${PROJECT_SOURCE_DIR}/cmake/symbols/${version}.txt")
    set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${list}")
    file(STRINGS "${list}" names)
    list(JOIN names ";\n    " body)
    string(APPEND script "${version} {\n  global:\n    ${body};\n}${before};\n")
    set(before " ${version}")
  endforeach()
  file(CONFIGURE OUTPUT "${file}" CONTENT "${script}" @ONLY)
endfunction()

# grx_library(NAME OBJECTS target [ON name] [PUBLIC library...] [PRIVATE library...]): lib<NAME>.so and lib<NAME>.a of the
# same objects. PUBLIC names what the public headers show, ON another such library that this one calls.
# Symbols of the host stay undefined in the shared library: the application brings them.
function(grx_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "OBJECTS;ON" "PUBLIC;PRIVATE")
  add_library(${name} SHARED $<TARGET_OBJECTS:${arg_OBJECTS}>)
  add_library(${name}_static STATIC $<TARGET_OBJECTS:${arg_OBJECTS}>)
  set_target_properties(${name} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINKER_LANGUAGE CXX)
  set_target_properties(${name}_static PROPERTIES OUTPUT_NAME ${name} LINKER_LANGUAGE CXX)
  target_link_options(${name} PRIVATE -Wl,--as-needed)
  target_link_libraries(${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} $<BUILD_INTERFACE:grx_strict>)
  target_link_libraries(${name}_static PUBLIC ${arg_PUBLIC} ${arg_PRIVATE})
  if(arg_ON)
    target_link_libraries(${name} PUBLIC ${arg_ON})
    target_link_libraries(${name}_static PUBLIC ${arg_ON}_static)
  endif()
  foreach(target ${name} ${name}_static)
    target_include_directories(${target} INTERFACE
      $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/inc>
      $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/host>
      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/grx>)
  endforeach()
endfunction()

# grx_tools(PATTERN...): one installed program per source, named like its file, over the archives.
function(grx_tools)
  list(TRANSFORM ARGN PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
  file(GLOB found CONFIGURE_DEPENDS ${ARGN})
  foreach(source IN LISTS found)
    cmake_path(GET source STEM name)
    add_executable(${name} "${source}")
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/x11")
    target_link_libraries(${name} PRIVATE grx_strict grx_static grxhost_static)
    target_compile_definitions(${name} PRIVATE GRX_VERSION="${PROJECT_VERSION}")
    install(TARGETS ${name} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endforeach()
endfunction()
