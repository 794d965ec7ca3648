# Plants a fault into a translated slice. -DSLICE=... -DFAULT=... -DOUTPUT=...
file(READ ${SLICE} sound)
if(FAULT STREQUAL "handlers") # are dropped
    string(REGEX REPLACE "\\.cfi_(personality|lsda) [^\n]*\n" "" planted "${sound}")
elseif(FAULT STREQUAL "registers") # are looked for a word beside where they were saved; the frame's own are found
    string(REGEX REPLACE "(\\.cfi_offset (3|1[2-5]|19|2[0-8]), -[0-9]+)" "\\1-8" planted "${sound}")
elseif(FAULT STREQUAL "import") # is another function's
    string(REPLACE " CFRelease+0" " CFStringGetLength+0" planted "${sound}")
endif()
if(planted STREQUAL sound)
    message(FATAL_ERROR "there is nothing to plant the fault in: ${FAULT}")
endif()
file(WRITE ${OUTPUT} "${planted}")
