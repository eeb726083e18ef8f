# The package signing key. A release build names its key file at configure time; otherwise the
# build makes one in its own tree the first time (never in the sources). The public half is
# compiled into the product's library, the private half signs the factory package (presets/).

set(VELMARIN_PACKAGE_KEY "" CACHE FILEPATH "Key file that signs the factory package (made in the build tree when empty)")
if(VELMARIN_PACKAGE_KEY)
  set(VELMARIN_KEY_FILE "${VELMARIN_PACKAGE_KEY}")
else()
  set(VELMARIN_KEY_FILE "${CMAKE_BINARY_DIR}/package-key/velmarin-package.key")
  add_custom_command(OUTPUT "${VELMARIN_KEY_FILE}"
    COMMAND velmarin-package keygen --bits 2048 --keep-existing --out "${VELMARIN_KEY_FILE}"
    COMMENT "Making the package signing key"
    VERBATIM)
endif()
# The target that the product's key source and the factory package wait for.
add_custom_target(velmarin_package_key DEPENDS "${VELMARIN_KEY_FILE}")
