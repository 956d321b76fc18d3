# cmake -DFILES=a;b -DFOLDER=dir -P lay_out_data.cmake: copies each file into the folder unless one of
# its name is there.
file(MAKE_DIRECTORY "${FOLDER}")
foreach(file IN LISTS FILES)
  get_filename_component(name "${file}" NAME)
  if(NOT EXISTS "${FOLDER}/${name}")
    file(COPY "${file}" DESTINATION "${FOLDER}")
  endif()
endforeach()
