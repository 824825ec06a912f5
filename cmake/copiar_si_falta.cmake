# Copies a settings file into the program's folder unless it is already there: a user's
# Saldeva.udl (pointing to a server) or window positions must survive a rebuild.
if(NOT EXISTS "${DESTINO}")
  configure_file("${ORIGEN}" "${DESTINO}" COPYONLY)
endif()
