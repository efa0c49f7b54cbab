# For programs that link the library statically, or that are shipped without it being installed.

# brisel_deploy_bundle(<program>): copies the resource bundle beside the program, where the library looks for it.
function(brisel_deploy_bundle program)
  add_custom_command(
    TARGET ${program}
    POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${BRISEL_BUNDLE_DIR} $<TARGET_FILE_DIR:${program}>/BriselFoundation.bundle
    VERBATIM)
endfunction()
