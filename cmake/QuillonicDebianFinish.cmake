# Run by CPack on the Debian packages it has made: adds what each must hold besides its files (the owner's terms, the
# changes), asks dpkg to renew the loader's cache in place of scripts that do so, and counts the size anew, which
# CPack takes before it strips.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
set(maintainer ${CPACK_PACKAGE_CONTACT})
set(work ${CPACK_TOPLEVEL_DIRECTORY}/finish)
configure_file(${CPACK_QUILLONIC_SOURCES}/packaging/debian/changelog.in ${work}/changelog.Debian @ONLY)
configure_file(${CPACK_QUILLONIC_SOURCES}/CHANGELOG.md ${work}/changelog COPYONLY)

set(finish [[
  set -eu
  umask 022
  package=$1 sources=$2 work=$3
  tree=$work/tree
  rm -rf "$tree"
  dpkg-deb --raw-extract "$package" "$tree"
  control=$tree/DEBIAN
  documents=$tree/usr/share/doc/$(dpkg-deb --field "$package" Package)

  mkdir -p "$documents"
  cp "$sources/packaging/debian/copyright" "$documents"
  for changes in changelog changelog.Debian; do gzip -9n <"$work/$changes" >"$documents/$changes.gz"; done
  chmod 644 "$documents"/c*

  if [ -e "$control/shlibs" ]; then
    rm -f "$control/postinst" "$control/postrm"
    echo 'activate-noawait ldconfig' >"$control/triggers"
    sed -i 's/-[0-9]*)$/)/' "$control/shlibs" # programs need this version, not this making of the package
  fi
  (cd "$tree" && find usr -type f -exec md5sum {} + | LC_ALL=C sort -k 2 >DEBIAN/md5sums)
  # As Debian counts: each file in whole KiB, and 1 for everything else.
  size=$(cd "$tree" && find usr -type f -printf '%s\n' -o -printf '1\n' |
    awk '{ kib += int(($1 + 1023) / 1024) } END { print kib }')
  sed -i "s/^Installed-Size:.*/Installed-Size: $size/" "$control/control"
  dpkg-deb --root-owner-group --build "$tree" "$package" >/dev/null
  rm -rf "$tree"
]])
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  execute_process(COMMAND sh -c "${finish}" finish ${package} ${CPACK_QUILLONIC_SOURCES} ${work}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
