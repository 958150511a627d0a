# corvane_translations(TARGET NAME LANGUAGE...): compiles translations/NAME_LANGUAGE.ts of this folder and puts the result
# into the target, as the resource /corvane/translations/NAME_LANGUAGE.qm: a program finds its texts wherever it is
# installed. tools/translations brings the .ts files up to date with the sources.
function(corvane_translations target name)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/translations)
  file(MAKE_DIRECTORY ${folder})
  foreach(language IN LISTS ARGN)
    set(source ${CMAKE_CURRENT_SOURCE_DIR}/translations/${name}_${language}.ts)
    set(compiled ${name}_${language}.qm)
    add_custom_command(OUTPUT ${folder}/${compiled} DEPENDS ${source} VERBATIM
      COMMAND Qt6::lrelease -silent ${source} -qm ${folder}/${compiled})
    list(APPEND compiled_files ${folder}/${compiled})
    string(APPEND entries "    <file>${compiled}</file>\n")
  endforeach()
  set(list ${folder}/${name}.qrc)
  file(CONFIGURE OUTPUT ${list} @ONLY CONTENT
    "<RCC>\n  <qresource prefix=\"/corvane/translations\">\n@entries@  </qresource>\n</RCC>\n")
  string(MAKE_C_IDENTIFIER ${name}_translations identifier)
  add_custom_command(OUTPUT ${folder}/${identifier}.cpp DEPENDS ${list} ${compiled_files} VERBATIM
    COMMAND Qt6::rcc --name ${identifier} --output ${folder}/${identifier}.cpp ${list})
  set_source_files_properties(${folder}/${identifier}.cpp PROPERTIES SKIP_AUTOGEN ON)
  target_sources(${target} PRIVATE ${folder}/${identifier}.cpp)
endfunction()
