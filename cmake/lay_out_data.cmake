# cmake -DKEPT=a;b -DREFRESHED=c;d -DROOT=dir -DFOLDER=dir -P lay_out_data.cmake: copies files, named
# relative to ROOT, to the same place under FOLDER. One of KEPT stays as it is there once it exists; one
# of REFRESHED is replaced when the project's is newer.
foreach(file IN LISTS KEPT)
  if(NOT EXISTS "${FOLDER}/${file}")
    configure_file("${ROOT}/${file}" "${FOLDER}/${file}" COPYONLY)
  endif()
endforeach()
foreach(file IN LISTS REFRESHED)
  if("${ROOT}/${file}" IS_NEWER_THAN "${FOLDER}/${file}")
    configure_file("${ROOT}/${file}" "${FOLDER}/${file}" COPYONLY)
  endif()
endforeach()
