# corvane_add_fuzz_target(NAME SOURCE... LIBRARIES LIBRARY...)
#
# A program NAME that feeds libFuzzer's inputs to the LLVMFuzzerTestOneInput in its sources. Its
# seeds lie in corpus/NAME without the "_fuzz", beside the CMakeLists.txt that calls this; a
# NAME.dict there is handed to it. tools/run-fuzz-targets finds it by the list that is kept here.
# Needs clang and the flags of the preset "fuzz".
function(corvane_add_fuzz_target name)
  cmake_parse_arguments(PARSE_ARGV 1 fuzz "" "" LIBRARIES)
  add_executable(${name} ${fuzz_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE corvane_warnings ${fuzz_LIBRARIES})
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  string(REGEX REPLACE "_fuzz$" "" topic ${name})
  set(dictionary "")
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${name}.dict")
    set(dictionary "${CMAKE_CURRENT_SOURCE_DIR}/${name}.dict")
  endif()
  set_property(
    GLOBAL APPEND PROPERTY CORVANE_FUZZ_TARGETS
                           "${name}\t${CMAKE_CURRENT_SOURCE_DIR}/corpus/${topic}\t${dictionary}\n")
endfunction()

# To be called once, behind the last target.
function(corvane_list_fuzz_targets)
  get_property(targets GLOBAL PROPERTY CORVANE_FUZZ_TARGETS)
  string(CONCAT targets ${targets})
  file(WRITE "${CMAKE_BINARY_DIR}/fuzz_targets.txt" "${targets}")
endfunction()
