// Functions of macOS whose calls no compiler here can take. Each keeps the frame that unwinding needs.

    .section .note.GNU-stack, "", %progbits
    .text

// objc_msgSend calls the method with the arguments that it finds itself, in whichever registers: all are kept across the look-up. A
// nil receiver answers zero.
    .globl macos_objc_msgSend
    .hidden macos_objc_msgSend
    .type macos_objc_msgSend, %function
macos_objc_msgSend:
    .cfi_startproc
#if defined(__x86_64__)
    testq %rdi, %rdi
    je 1f
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    subq $192, %rsp
    movups %xmm0, (%rsp)
    movups %xmm1, 16(%rsp)
    movups %xmm2, 32(%rsp)
    movups %xmm3, 48(%rsp)
    movups %xmm4, 64(%rsp)
    movups %xmm5, 80(%rsp)
    movups %xmm6, 96(%rsp)
    movups %xmm7, 112(%rsp)
    movq %rdi, 128(%rsp)
    movq %rsi, 136(%rsp)
    movq %rdx, 144(%rsp)
    movq %rcx, 152(%rsp)
    movq %r8, 160(%rsp)
    movq %r9, 168(%rsp)
    movq %rax, 176(%rsp)
    call objc_msg_lookup@PLT
    movq %rax, %r11
    movups (%rsp), %xmm0
    movups 16(%rsp), %xmm1
    movups 32(%rsp), %xmm2
    movups 48(%rsp), %xmm3
    movups 64(%rsp), %xmm4
    movups 80(%rsp), %xmm5
    movups 96(%rsp), %xmm6
    movups 112(%rsp), %xmm7
    movq 128(%rsp), %rdi
    movq 136(%rsp), %rsi
    movq 144(%rsp), %rdx
    movq 152(%rsp), %rcx
    movq 160(%rsp), %r8
    movq 168(%rsp), %r9
    movq 176(%rsp), %rax
    leave
    .cfi_def_cfa %rsp, 8
    .cfi_restore %rbp
    jmp *%r11
1:  xorl %eax, %eax
    xorl %edx, %edx
    xorps %xmm0, %xmm0
    xorps %xmm1, %xmm1
    ret
#elif defined(__aarch64__)
    cbz x0, 1f
    stp x29, x30, [sp, #-224]!
    .cfi_def_cfa_offset 224
    .cfi_offset x29, -224
    .cfi_offset x30, -216
    stp x0, x1, [sp, #16]
    stp x2, x3, [sp, #32]
    stp x4, x5, [sp, #48]
    stp x6, x7, [sp, #64]
    str x8, [sp, #80]
    stp q0, q1, [sp, #96]
    stp q2, q3, [sp, #128]
    stp q4, q5, [sp, #160]
    stp q6, q7, [sp, #192]
    bl objc_msg_lookup
    mov x16, x0
    ldp x0, x1, [sp, #16]
    ldp x2, x3, [sp, #32]
    ldp x4, x5, [sp, #48]
    ldp x6, x7, [sp, #64]
    ldr x8, [sp, #80]
    ldp q0, q1, [sp, #96]
    ldp q2, q3, [sp, #128]
    ldp q4, q5, [sp, #160]
    ldp q6, q7, [sp, #192]
    ldp x29, x30, [sp], #224
    .cfi_def_cfa_offset 0
    .cfi_restore x29
    .cfi_restore x30
    br x16
1:  mov x1, #0
    movi d0, #0
    movi d1, #0
    movi d2, #0
    movi d3, #0
    ret
#endif
    .cfi_endproc
    .size macos_objc_msgSend, . - macos_objc_msgSend

// snprintf. Arguments without a parameter are on the stack on Apple's arm64, a word each.
    .globl macos_snprintf
    .hidden macos_snprintf
    .type macos_snprintf, %function
macos_snprintf:
#if defined(__x86_64__)
    jmp snprintf@PLT
#elif defined(__aarch64__)
    mov x3, sp
    b macos_formatFromStack
#endif
    .size macos_snprintf, . - macos_snprintf
