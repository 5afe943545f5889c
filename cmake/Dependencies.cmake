# What the libraries are made of; docs/dependencies.md says why each was chosen.
find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(ICU REQUIRED IMPORTED_TARGET icu-uc icu-i18n)
pkg_check_modules(PLIST REQUIRED IMPORTED_TARGET libplist-2.0)
pkg_check_modules(SQLITE REQUIRED IMPORTED_TARGET sqlite3)
pkg_check_modules(CRYPTO REQUIRED IMPORTED_TARGET libcrypto)
pkg_check_modules(CAIRO REQUIRED IMPORTED_TARGET
    cairo cairo-ft pangocairo pangoft2 harfbuzz freetype2 fontconfig)
pkg_check_modules(SPNG REQUIRED IMPORTED_TARGET spng)
pkg_check_modules(JPEG REQUIRED IMPORTED_TARGET libjpeg)
pkg_check_modules(WEBP REQUIRED IMPORTED_TARGET libwebp libwebpdemux)
# Its library comes without a description for pkg-config.
find_package(GIF 5 REQUIRED)
pkg_check_modules(QRENCODE REQUIRED IMPORTED_TARGET libqrencode)
pkg_check_modules(ZXING REQUIRED IMPORTED_TARGET zxing)
# The window's connection is asked of the toolkit that SDL opened it with.
pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET sdl2 wayland-client)
# Older ones may raise a signal when a server hangs up.
pkg_check_modules(CURL REQUIRED IMPORTED_TARGET libcurl>=7.88)
pkg_check_modules(SDBUS REQUIRED IMPORTED_TARGET libsystemd)
