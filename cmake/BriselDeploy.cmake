# For programs that link the library statically, or that are shipped without it being installed.

# brisel_deploy_bundle(<program>): copies the resource bundle beside the program, where the library looks for it.
function(brisel_deploy_bundle program)
  get_property(bundle GLOBAL PROPERTY BRISEL_BUNDLE_DIR)
  if(TARGET brisel_bundle)
    add_dependencies(${program} brisel_bundle)
  endif()
  add_custom_command(
    TARGET ${program}
    POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${bundle} $<TARGET_FILE_DIR:${program}>/BriselFoundation.bundle
    VERBATIM)
endfunction()
