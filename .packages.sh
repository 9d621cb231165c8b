# The Debian packages that ./run and ./test need, installed when one is missing. Sourced by both.

packages_build="g++ cmake ninja-build libcli11-dev libeigen3-dev nlohmann-json3-dev qt6-base-dev qt6-svg-dev qt6-translations-l10n cmark-gfm fonts-dejavu-core"
packages_test="clang-format libgtest-dev libxtst-dev libsm-dev xvfb"

# install_packages NAME...: says what it does; uses sudo when the user is not root.
install_packages() {
    missing=""
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" = "install ok installed" ] || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    as_root=""
    [ "$(id -u)" -eq 0 ] || as_root="sudo"
    echo "installing:$missing" >&2
    $as_root apt-get update -qq >&2 || true
    # shellcheck disable=SC2086
    DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
}
