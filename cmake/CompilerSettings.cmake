# Warnings, sanitizers and the optional compiler cache, applied to every target.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion)

if(ORBELAN_SANITIZE)
  set(ORBELAN_SANITIZER_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_compile_options(${ORBELAN_SANITIZER_FLAGS})
  add_link_options(${ORBELAN_SANITIZER_FLAGS})
endif()

# Fuzz builds instrument every target for coverage; only the fuzz targets link
# libFuzzer's driver.
if(ORBELAN_BUILD_FUZZERS)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# A compiler cache speeds up rebuilds where one is installed; nothing depends on it.
find_program(ORBELAN_CCACHE ccache)
if(ORBELAN_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ORBELAN_CCACHE})
endif()
