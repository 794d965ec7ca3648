// A message can have arguments in any registers, and no compiler here can describe that call. So all argument registers are saved
// across the look-up of the method. A nil receiver returns zero. The frame is set up as the unwinder needs it.

    .section .note.GNU-stack, "", %progbits
    .text
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
    .irp register, rdi, rsi, rdx, rcx, r8, r9, rax, rax
    pushq %\register
    .endr
    subq $128, %rsp
    .irp n, 0, 1, 2, 3, 4, 5, 6, 7
    movups %xmm\n, 16 * \n(%rsp)
    .endr
    call objc_msg_lookup@PLT
    movq %rax, %r11
    .irp n, 0, 1, 2, 3, 4, 5, 6, 7
    movups 16 * \n(%rsp), %xmm\n
    .endr
    addq $128, %rsp
    .irp register, rax, rax, r9, r8, rcx, rdx, rsi, rdi
    popq %\register
    .endr
    popq %rbp
    .cfi_def_cfa %rsp, 8
    .cfi_restore %rbp
    jmp *%r11
1:  xorl %eax, %eax
    xorl %edx, %edx
    xorps %xmm0, %xmm0
    xorps %xmm1, %xmm1
    ret
#elif defined(__aarch64__)
    .macro each_argument transfer
    .irp n, 0, 1, 2, 3, 4, 5, 6, 7, 8
    \transfer x\n, [sp, #16 + 8 * \n]
    .endr
    .irp n, 0, 1, 2, 3, 4, 5, 6, 7
    \transfer q\n, [sp, #96 + 16 * \n]
    .endr
    .endm
    cbz x0, 1f
    stp x29, x30, [sp, #-224]!
    .cfi_def_cfa_offset 224
    .cfi_offset x29, -224
    .cfi_offset x30, -216
    each_argument str
    bl objc_msg_lookup
    mov x16, x0
    each_argument ldr
    ldp x29, x30, [sp], #224
    .cfi_def_cfa_offset 0
    .cfi_restore x29
    .cfi_restore x30
    br x16
1:  mov x1, #0
    .irp n, 0, 1, 2, 3
    movi d\n, #0
    .endr
    ret
#endif
    .cfi_endproc
    .size macos_objc_msgSend, . - macos_objc_msgSend
