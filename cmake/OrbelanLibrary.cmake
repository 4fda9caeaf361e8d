# Every project include names its folder: "session/MapSession.h". A library
# publishes its folder, and only that, under a root of its own; what links the
# library sees the folder, what does not cannot include from it, so an
# include against the direction of the dependencies does not compile.
function(orbelan_publish_folder target folder)
  set(root ${PROJECT_BINARY_DIR}/include/${target})
  file(MAKE_DIRECTORY ${root})
  get_filename_component(link ${root}/${folder} ABSOLUTE)
  get_filename_component(parent ${link} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${folder} ${link} SYMBOLIC COPY_ON_ERROR)
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${root}> $<INSTALL_INTERFACE:include>)
endfunction()
