if(GEXLO_SANITIZE)
  add_compile_options(-fsanitize=${GEXLO_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${GEXLO_SANITIZE})
endif()
