# Writes OUTPUT, the source that knows version and commit, anew when they changed. Run at each build:
# -DVERSION=... -DSOURCE=... -DTEMPLATE=... -DOUTPUT=... -P WriteVersion.cmake
execute_process(COMMAND git -C "${SOURCE}" describe --always --dirty --exclude=*
  OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
set(KOVRA_VERSION_TEXT "${VERSION}")
if(commit)
  set(KOVRA_VERSION_TEXT "${VERSION} (${commit})")
endif()
configure_file("${TEMPLATE}" "${OUTPUT}" @ONLY)
