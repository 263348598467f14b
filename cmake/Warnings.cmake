# Compile options every target of ours takes, PRIVATE to each.
function(tablewright_target_options target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8)
    if(TABLEWRIGHT_WARNINGS_AS_ERRORS)
      target_compile_options(${target} PRIVATE /WX)
    endif()
    return()
  endif()
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
  # GCC 12 reports overlapping copies inside std::string at -O3 where there are none
  # (its bug 105329); the check stays on for every other compiler.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(TABLEWRIGHT_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(TABLEWRIGHT_SANITIZE)
    # The sanitizers' instrumentation makes GCC 12 see uninitialised reads inside the
    # standard library (std::regex's std::function members) that are not there.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
    endif()
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()
