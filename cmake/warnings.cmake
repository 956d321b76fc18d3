# Every target of ours links corvane_warnings; what the compiler can doubt, it refuses.
add_library(corvane_warnings INTERFACE)
target_compile_options(
  corvane_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

if(CORVANE_SANITIZE STREQUAL "thread")
  target_compile_options(corvane_warnings INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(corvane_warnings INTERFACE -fsanitize=thread)
elseif(CORVANE_SANITIZE)
  target_compile_options(
    corvane_warnings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                               -fno-omit-frame-pointer)
  target_link_options(corvane_warnings INTERFACE -fsanitize=address,undefined)
endif()
