# fish completion for quillmar
for program in quillmar QuillmarQuickLook
    complete -c $program -l html -r -F -d 'Write one self-contained page'
    complete -c $program -l output -x -a '(__fish_complete_directories)' -d 'Write the page and its parts into a folder'
    complete -c $program -l install-preview -d 'Have file managers show previews with Quillmar'
    complete -c $program -l uninstall-preview -d 'Give that role back'
    complete -c $program -l no-icons -d 'Ask the desktop for no icons'
    complete -c $program -l verbose -d 'Say on standard error what is done'
    complete -c $program -l version -d 'Say which version this is'
    complete -c $program -l help -d 'Show the options'
end
