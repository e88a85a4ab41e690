if(GEXLO_SANITIZE)
  add_compile_options(-fsanitize=${GEXLO_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${GEXLO_SANITIZE})
  if(GEXLO_SANITIZE MATCHES "address")
    # Beside the thread sanitizer, GCC 12 takes them for writes out of bounds of its own.
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
  endif()
endif()
if(GEXLO_FUZZ)
  # Coverage of the code under test is what guides the fuzzers.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
