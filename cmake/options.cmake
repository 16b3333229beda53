# How everything of ours is compiled.
add_library(quillery_options INTERFACE)
target_compile_options(
  quillery_options
  INTERFACE
    -Wall -Wextra -Wpedantic # what both compilers can tell is wrong
    -Wconversion # font units, bytes and counts must not lose digits unseen
    -Werror # a warning that may stay is one that nobody reads
    -ffp-contract=off # a fused multiply-add rounds differently: every machine gives the same doubles
)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlaps in the concatenation of texts where there are none (its bug 105329)
  target_compile_options(quillery_options INTERFACE -Wno-restrict)
endif()
if(QUILLERY_SANITIZERS)
  target_compile_options(quillery_options INTERFACE -fsanitize=${QUILLERY_SANITIZERS} -fno-omit-frame-pointer
                                                    -fno-sanitize-recover=all)
  target_link_options(quillery_options INTERFACE -fsanitize=${QUILLERY_SANITIZERS})
endif()
