! The same on both systems: here the Fortran run-time is the system.
function qz_write_fortran_unit(unit, text, length) bind(c) result(status)
    use, intrinsic :: iso_c_binding, only: c_char, c_f_pointer, c_int, c_ptr
    implicit none
    integer(c_int), value :: unit
    type(c_ptr), value :: text
    integer(c_int), value :: length
    integer(c_int) :: status
    character(kind=c_char, len=max(length, 0)), pointer :: record

    call c_f_pointer(text, record)
    write (unit, '(a)', iostat=status) record
end function
