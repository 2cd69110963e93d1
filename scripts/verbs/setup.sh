# setup                    install the packages of all verbs

need "${!kit_packages[@]}"
step "everything is installed"
