# orvella_qml_module(TARGET URI … QML_FILES … [SOURCES …] [RESOURCES …] [IMPORTS …] [LIBRARIES …] [DEPENDENCIES …])
# One folder of ui/, as a static QML module under qrc:/qt/qml whose files are compiled ahead of time.
# Link a program to TARGETplugin to have the module's types registered.
function(orvella_qml_module target)
  cmake_parse_arguments(arg "" "URI" "QML_FILES;SINGLETONS;SOURCES;RESOURCES;LIBRARIES;DEPENDENCIES" ${ARGN})
  set_source_files_properties(${arg_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
  string(REPLACE "." "/" path ${arg_URI})
  # Compiling QML is a third of a build, and the sanitizers have nothing to look for in what comes of it.
  set(cachegen)
  if(ORVELLA_SANITIZE)
    set(cachegen NO_CACHEGEN)
  endif()
  qt_add_library(${target} STATIC)
  qt_add_qml_module(${target}
    URI ${arg_URI}
    VERSION 1.0
    RESOURCE_PREFIX /qt/qml
    OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/qml/${path}
    IMPORT_PATH ${PROJECT_BINARY_DIR}/qml
    DEPENDENCIES QtQuick ${arg_DEPENDENCIES}
    ${cachegen}
    QML_FILES ${arg_SINGLETONS} ${arg_QML_FILES}
    SOURCES ${arg_SOURCES}
    RESOURCES ${arg_RESOURCES})
  orvella_metatypes(${target})
  # The C++ made of QML includes the same headers file by file; joined it compiles in a sixth of the time.
  if(NOT ORVELLA_SANITIZE)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
    set_source_files_properties(${arg_SOURCES} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${target} PRIVATE orvella_flags PUBLIC Qt6::Quick ${arg_LIBRARIES})
endfunction()

# orvella_metatypes(TARGET): describes the target's types to the QML modules above it, with what they inherit.
function(orvella_metatypes target)
  qt_extract_metatypes(${target})
  get_target_property(file ${target} INTERFACE_QT_META_TYPES_BUILD_FILE)
  add_custom_command(OUTPUT ${file}.gen APPEND
    COMMAND ${CMAKE_COMMAND} -DFILE=${file} -P ${PROJECT_SOURCE_DIR}/cmake/QualifyBases.cmake)
endfunction()
