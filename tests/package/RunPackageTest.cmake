# Installs the build into a prefix of its own, and builds and runs a small program against it, as others would.
#   BUILD     the build folder to install
#   WORK      a folder to work in
#   WAY       Shared, Static (both through find_package) or PkgConfig
#   COMPILER, FLAGS  those of the build, so that an instrumented build gets a consumer that fits
function(run)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${result}:\n${output}\n${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

set(prefix ${WORK}/${WAY}/prefix)
set(consumer ${CMAKE_CURRENT_LIST_DIR}/consumer)
file(REMOVE_RECURSE ${WORK}/${WAY})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})

# Every installed header, each named first in a source of its own, must compile from the installation alone.
set(header_folder ${prefix}/include/VEXTimeAnalysisModeler)
file(GLOB_RECURSE headers RELATIVE ${header_folder} ${header_folder}/*.h)
if(NOT headers)
  message(FATAL_ERROR "No header was installed")
endif()
foreach(header IN LISTS headers)
  string(MAKE_C_IDENTIFIER ${header} name)
  file(WRITE ${WORK}/${WAY}/headers/${name}.cpp "#include \"${header}\"\n")
  list(APPEND header_sources ${WORK}/${WAY}/headers/${name}.cpp)
endforeach()

# Some systems leave shared libraries out of programs that name nothing of them; here all do.
set(leave_out -Wl,--as-needed)

if(WAY STREQUAL "PkgConfig")
  file(GLOB_RECURSE package_file ${prefix}/VEXTimeAnalysisModeler.pc)
  cmake_path(GET package_file PARENT_PATH package_folder)
  set(ENV{PKG_CONFIG_PATH} ${package_folder})
  run(pkg-config --cflags VEXTimeAnalysisModeler)
  separate_arguments(compile_flags UNIX_COMMAND "${output} ${FLAGS}")
  run(pkg-config --libs VEXTimeAnalysisModeler)
  separate_arguments(link_flags UNIX_COMMAND "${output}")
  run(pkg-config --variable=libdir VEXTimeAnalysisModeler)
  string(STRIP "${output}" library_folder)
  set(programs ${WORK}/${WAY})
  foreach(source IN ITEMS main tree)
    run(${COMPILER} -std=c++20 ${compile_flags} ${consumer}/${source}.cpp -o ${programs}/${source}
      ${leave_out} ${link_flags} -Wl,-rpath,${library_folder})
  endforeach()
  run(${COMPILER} -std=c++20 ${compile_flags} ${consumer}/hand.cpp -o ${programs}/hand
    ${library_folder}/libVEXTimeAnalysisModelerServices.a ${library_folder}/libkorplatform.a
    -lexpat -lutf8proc -llua5.4)
  run(pkg-config --variable=catalogue VEXTimeAnalysisModeler)
  string(STRIP "${output}" catalogue)
else()
  set(kind "")
  if(WAY STREQUAL "Static")
    set(kind Static)
    set(header_sources "")
  endif()
  set(build ${WORK}/${WAY}/build)
  run(${CMAKE_COMMAND} -G Ninja -S ${consumer} -B ${build} -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${FLAGS}
    -DCMAKE_EXE_LINKER_FLAGS=${leave_out}
    -DCOMPONENTS=${kind} -DKIND=${kind} "-DALL_HEADERS=${header_sources}")
  run(${CMAKE_COMMAND} --build ${build})
  set(programs ${build})
  set(catalogue ${prefix}/share/VEXTimeAnalysisModeler/catalogue)
endif()

# expect PROGRAM TEXT: the program prints the text.
function(expect program text)
  run(${programs}/${program})
  if(NOT output STREQUAL "${text}\n")
    message(FATAL_ERROR "${program} printed ${output}")
  endif()
endfunction()
expect(main "3 0")
expect(tree "I_Fasten I_VEXSTTStopWatchLocked, I_Fasten I_VEXSTTStopWatchLocked")
if(WAY STREQUAL "PkgConfig")
  expect(hand "3 failed")
else()
  expect(plain "1 1")
endif()
if(WAY STREQUAL "Shared")
  expect(plugin "0 5 5 I_Fasten")
endif()
if(NOT EXISTS ${catalogue}/DataCardEntry OR NOT EXISTS ${catalogue}/DataCard)
  message(FATAL_ERROR "The catalogue was not installed to ${catalogue}")
endif()

# The installed tool finds the installed libraries and the installed catalogue by itself.
if(WAY STREQUAL "Shared" AND EXISTS ${BUILD}/bin/timeanalysis)
  run(${CMAKE_COMMAND} -E env --unset=KORStartupPath ${prefix}/bin/timeanalysis code MTM1 R45B)
endif()
