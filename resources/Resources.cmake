function(vantor_resources target)
endfunction()
