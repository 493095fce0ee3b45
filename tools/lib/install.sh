# Installs Debian packages that are missing. Sourced, not run; needs packages.sh.

# Prints those of the named packages that are not installed.
missing_packages() {
    local package
    local -A installed=()
    while read -r package; do
        installed[$package]=yes
    done < <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed //p')
    for package in "$@"; do
        [[ -n ${installed[$package]:-} ]] || echo "$package"
    done
}

# Installs what is missing of the named packages, saying so first; makes no apt call when nothing is.
# Everything it prints goes to standard error.
install_missing() {
    local -a missing as_root=()
    if ! command -v dpkg-query >/dev/null; then
        echo "This is not a Debian system: make sure that what these packages hold is there: $*" >&2
        return 0
    fi
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0

    echo "Installing ${#missing[@]} Debian packages: ${missing[*]}" >&2
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "Installing needs root: run this as root once, or install sudo." >&2
            return 1
        fi
        as_root=(sudo)
    fi
    as_root+=(env DEBIAN_FRONTEND=noninteractive)
    "${as_root[@]}" apt-get update -q >&2 </dev/null || return 1
    "${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}" >&2 </dev/null
}
