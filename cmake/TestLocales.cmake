# Locales for the tests, made in the build folder: what the machine has installed plays no part.
# A machine that can't make them fails the build rather than leaving the tests out.
set(TEST_LOCALE_FOLDER ${PROJECT_BINARY_DIR}/locale)

function(add_test_locales)
  find_program(TIMEANALYSIS_LOCALEDEF localedef REQUIRED)
  foreach(charset IN ITEMS UTF-8 ISO-8859-1)
    set(locale de_DE.${charset})
    # localedef makes the folder last of all, so an interrupted run leaves nothing that looks finished.
    add_custom_command(OUTPUT ${TEST_LOCALE_FOLDER}/${locale}/LC_NUMERIC
      COMMAND ${CMAKE_COMMAND} -E make_directory ${TEST_LOCALE_FOLDER}
      COMMAND ${TIMEANALYSIS_LOCALEDEF} -i de_DE -f ${charset} ${TEST_LOCALE_FOLDER}/${locale}
      COMMENT "Making the locale ${locale} (decimal comma)" VERBATIM)
    list(APPEND made ${TEST_LOCALE_FOLDER}/${locale}/LC_NUMERIC)
  endforeach()
  add_custom_target(test_locales ALL DEPENDS ${made})
endfunction()
