// Compiled into each program that an update can replace: the note by which the update check knows its version
// (foundation/program_note.h, which reads it).

#ifndef OMBRIN_VERSION
#error "the program's version is to be given"
#endif

__asm__(".pushsection .note.ombrin.version, \"a\", %note\n"
        ".balign 4\n"
        ".long 2f - 1f, 4f - 3f, 1\n" // lengths of owner and text, the type
        "1: .asciz \"Ombrin\"\n"
        "2: .balign 4\n"
        "3: .asciz \"" OMBRIN_VERSION "\"\n"
        "4: .balign 4\n"
        ".popsection");
