# A folder is a room: every source file in it belongs to its library, so adding a file is all it takes.
function(room_sources target)
  foreach(folder IN LISTS ARGN)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
    target_sources(${target} PRIVATE ${sources})
  endforeach()
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR})
endfunction()
