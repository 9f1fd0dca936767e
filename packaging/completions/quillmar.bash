# bash completion for quillmar

_quillmar() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    if [[ $previous == --output ]]; then
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
    elif [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--help --html --install-preview --no-icons --output --uninstall-preview --verbose --version' -- "$current")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
}
complete -o filenames -F _quillmar quillmar QuillmarQuickLook
