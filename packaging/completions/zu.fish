# Completion of zu for fish.
function __zu_complete
    set -l typed (commandline --tokenize --current-process --cut-at-cursor)
    set -l word (commandline --current-token --cut-at-cursor)
    for line in ($typed[1] --complete $typed[2..] "$word" 2>/dev/null)
        if test "$line" = :files
            __fish_complete_path $word
        else
            echo $line
        end
    end
end
complete --command zu --no-files --arguments '(__zu_complete)'
