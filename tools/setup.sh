# Sourced after steps.sh: installs the Debian packages that a piece of work needs, once.

PACKAGES_BUILD=(g++ cmake ninja-build libicu-dev libcli11-dev nlohmann-json3-dev libboost1.81-dev
    googletest pkgconf libcairo2-dev libpango1.0-dev unixodbc-dev)
PACKAGES_TEST=(clang clang-format clang-tidy libclang-rt-dev git fonts-wqy-zenhei libsqliteodbc)
# Without libxi6 Wine confines no cursor.
PACKAGES_WINDOWS=(g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools wine64 wine
    libxi6 xvfb xauth locales fonts-wqy-zenhei)
# An input method, other programs' clipboard, and keys from outside of Wine.
PACKAGES_DESK=(fcitx5 fcitx5-pinyin dbus-daemon x11-utils xdotool xclip)
# Databases, their drivers, and their own clients.
PACKAGES_DATA=(unixodbc libsqliteodbc odbc-postgresql postgresql sqlite3 xz-utils)
PACKAGES_X86=(debootstrap)
PACKAGES_BENCH=(qtbase5-dev libwxgtk3.2-dev sqlite3 xz-utils xvfb xauth libsqliteodbc)
PACKAGES_RUN=(xz-utils)
PACKAGES_FONT=(fonts-wqy-zenhei)
PACKAGES_PICTURE=(pango1.0-tools)

missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            printf '%s\n' "$package"
    done
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        die "packages are missing and neither root nor sudo is at hand to install them: $*"
    fi
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@"
}

# need PACKAGE... installs what is missing of them. Nothing is asked of the network otherwise.
need() {
    local missing
    command -v dpkg-query >/dev/null || die "this needs Debian 12 (or a system with its packages)"
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" = 0 ] && return 0
    step "refreshing the list of packages" as_root apt-get update
    step "installing ${#missing[@]} packages" apt_install "${missing[@]}"
}

# in_chinese COMMAND... runs it where code page 936 is the system's. The locale for that is made in
# our own folder, so that the machine's stay as they are.
in_chinese() {
    local folder=$VEY_CACHE/locale
    [ -d "$folder/zh_CN.UTF-8" ] || make_chinese_locale "$folder" || return 1
    (
        export LOCPATH=$folder
        export LC_ALL=zh_CN.UTF-8 2>/dev/null # this shell itself cannot find it any more
        "$@"
    )
}
make_chinese_locale() {
    mkdir -p "$1" && localedef -i zh_CN -f UTF-8 "$1/part" && mv -T "$1/part" "$1/zh_CN.UTF-8"
}

# build PRESET [TARGET...] configures where that is due, and builds.
build() {
    local preset=$1 targets=()
    shift
    [ $# = 0 ] || targets=(--target "$@")
    step "building $preset${1:+ ($*)}" build_quietly "$preset" "${targets[@]}"
}

build_quietly() {
    local preset=$1
    shift
    cd "$VEY_ROOT" || return 1
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" || return 1
    cmake --build --preset "$preset" "$@"
}
