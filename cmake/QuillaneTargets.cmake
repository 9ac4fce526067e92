# What every target of this project has in common.
add_library(quillane_common INTERFACE)
target_compile_features(quillane_common INTERFACE cxx_std_17)
target_include_directories(quillane_common INTERFACE "${PROJECT_SOURCE_DIR}")
target_link_libraries(quillane_common INTERFACE PkgConfig::fox)
target_compile_options(
  quillane_common
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wsuggest-override
            -Wnon-virtual-dtor
            -Werror
            # save and load are overloaded by their description: the toolkit's take a stream, ours a database.
            $<$<CXX_COMPILER_ID:Clang>:-Wno-overloaded-virtual>)

# quillane_object_library(NAME SOURCE...): code of the module, joined as objects (a static archive would drop the classes
# that only their meta class refers to) and hidden, in the module as well as in the tests.
function(quillane_object_library name)
  add_library(${name} OBJECT ${ARGN})
  target_link_libraries(${name} PUBLIC quillane_common)
  set_target_properties(${name} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
                                           POSITION_INDEPENDENT_CODE ON)
endfunction()

# quillane_icon_library(NAME HEADER FOLDER IMAGE...): images as arrays of bytes, declared in HEADER (its path from the
# include directory, without .h), each named as its file in FOLDER. Header and source are made in the build tree by the
# toolkit's reswrap.
function(quillane_icon_library name header folder)
  set(include_dir "${CMAKE_CURRENT_BINARY_DIR}/generated")
  set(generated "${include_dir}/${header}")
  get_filename_component(generated_dir "${generated}" DIRECTORY)
  file(MAKE_DIRECTORY "${generated_dir}")
  list(TRANSFORM ARGN PREPEND "${folder}/" OUTPUT_VARIABLE image_paths)
  add_custom_command(
    OUTPUT "${generated}.cpp" "${generated}.h"
    COMMAND "${QUILLANE_RESWRAP}" -e -o "${generated}.cpp" ${ARGN}
    COMMAND "${QUILLANE_RESWRAP}" -i -e -o "${generated}.h" ${ARGN}
    DEPENDS ${image_paths}
    WORKING_DIRECTORY "${folder}"
    COMMENT "Wrapping the images of ${name}"
    VERBATIM)
  quillane_object_library(${name} "${generated}.cpp" "${generated}.h")
  target_include_directories(${name} PUBLIC "${include_dir}")
endfunction()
