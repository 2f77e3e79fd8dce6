# What Debian's rules ask for beyond the installed files: compressed pages and the history of the package. Run by CPack on the
# folder of which it makes the package.
set(doc ${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/marvolin)
set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

execute_process(COMMAND date --utc --date=${CPACK_MARVOLIN_DAY} --rfc-email
  OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${doc}/changelog.Debian
"marvolin (${version}) unstable; urgency=medium

  * Version ${CPACK_PACKAGE_VERSION}; changelog.gz has what is new for players.

 -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${date}
")

file(WRITE ${CPACK_TEMPORARY_DIRECTORY}/usr/share/lintian/overrides/marvolin
"# The project makes this package itself; nobody at Debian was asked for it.
marvolin: initial-upload-closes-no-bugs *
")

# Without a time in it, so that the same files give the same package.
foreach(file ${doc}/changelog ${doc}/changelog.Debian ${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/man1/marvolin.1)
  execute_process(COMMAND gzip --best --no-name --force ${file} COMMAND_ERROR_IS_FATAL ANY)
  file(CHMOD ${file}.gz PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endforeach()
