/* The packs of images, in the module's read-only data. */
    .section .rodata

    .globl tessaly_skin_pack_1
    .hidden tessaly_skin_pack_1
    .globl tessaly_skin_pack_1_end
    .hidden tessaly_skin_pack_1_end
    .balign 16
tessaly_skin_pack_1:
    .incbin SKIN_PACK_1
tessaly_skin_pack_1_end:

    .globl tessaly_skin_pack_2
    .hidden tessaly_skin_pack_2
    .globl tessaly_skin_pack_2_end
    .hidden tessaly_skin_pack_2_end
    .balign 16
tessaly_skin_pack_2:
    .incbin SKIN_PACK_2
tessaly_skin_pack_2_end:

    .section .note.GNU-stack, "", %progbits
