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
