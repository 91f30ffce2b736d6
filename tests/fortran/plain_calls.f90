! Calls every entry point as a program does that knows nothing but their names: implicit interfaces,
! gfortran's own spelling, no compiler switch. Ends with an error at the first wrong answer.
program plain_calls
    use answers
    use, intrinsic :: iso_c_binding, only: c_char, c_null_char, c_ptr, c_size_t
    implicit none
    character, parameter :: nul = c_null_char
    integer, external :: &
        qztokenf_new, qztokenf_add, qztokenf_addn, qztokenf_clear, qztokenf_copy, &
        qztokenf_copyn, qztokenf_delete, qztokenf_delete_token, qztokenf_find_type, &
        qztokenf_get_double, qztokenf_get_int, qztokenf_get_token, qztokenf_index, &
        qztokenf_indexn, qztokenf_merge, qztokenf_mergen, qztokenf_num, &
        qztokenf_regex_compile, qztokenf_regex_index, qztokenf_replace, &
        qztokenf_tolower_token, qztokenf_toupper
    interface
        function qztokenf_get_string(handle) result(text)
            import :: c_ptr
            integer, intent(in) :: handle
            type(c_ptr) :: text
        end function

        function strlen(text) bind(c) result(length)
            import :: c_ptr, c_size_t
            type(c_ptr), value :: text
            integer(c_size_t) :: length
        end function

        subroutine free(memory) bind(c)
            import :: c_ptr
            type(c_ptr), value :: memory
        end subroutine
    end interface

    call errors
    call lost_records
    call tokens
    call files

contains

    ! A record thrown on a handler stands in the unit in order with the program's own.
    subroutine errors
        character(len=20) :: prefix = 'PLAIN', code
        character(len=80) :: message = 'mesh 5' // nul, line
        integer, parameter :: unit = 20
        integer :: id, status, level, ios

        call qzerrf_new(id, status)
        call require(status == 1 .and. id == 1, 'new')
        open (unit, file='plain_calls.log', status='replace', action='readwrite')
        call qzerrf_file(id, unit, status)
        call require(status == 1, 'file')
        call qzerrf_prefix(id, prefix, status)
        call require(status == 1, 'prefix')
        call qzerrf_level(id, 3, status)
        call require(status == 1, 'level')
        write (unit, '(a)') 'before'
        call qzerrf_throw(id, 2, message, status)
        call require(status == 1, 'throw below the level')
        call qzerrf_throw(id, 3, message, status)
        call require(status == 1, 'throw')
        write (unit, '(a)') 'after'
        call qzerrf_maxlevel(id, level, status)
        call require(status == 1 .and. level == 3, 'maxlevel')
        call qzerrf_return_code(level, code)
        call require(code == 'QZERR_INFO', 'return_code')
        call qzerrf_delete(id)
        call qzerrf_level(id, level, status)
        call require(status == 0, 'deleted')

        rewind (unit)
        read (unit, '(a)') line
        call require(line == 'before', 'first record')
        read (unit, '(a)') line
        call require(line == 'PLAIN INFO mesh 5', 'second record: ' // trim(line))
        read (unit, '(a)') line
        call require(line == 'after', 'third record')
        read (unit, '(a)', iostat=ios) line
        call require(ios /= 0, 'no further record')
        close (unit, status='delete')
    end subroutine

    ! A record that its unit does not take is lost, and so is one for a negative unit.
    subroutine lost_records
        character(len=80) :: message = 'lost' // nul
        integer :: id, status, units(2), written, i

        call qzerrf_new(id, status)
        units(1) = 20
        open (20, file='plain_calls.raw', status='replace', form='unformatted')
        open (newunit=units(2), file='plain_calls.log', status='replace')
        do i = 1, 2
            call qzerrf_file(id, units(i), status)
            call qzerrf_throw(id, 5, message, status)
            call require(status == 1, 'throw on a unit that takes nothing')
            flush (units(i))
            inquire (units(i), size=written)
            call require(written == 0, 'nothing written')
            close (units(i), status='delete')
        end do
        call qzerrf_delete(id)
    end subroutine

    subroutine tokens
        integer :: list, other, whole
        double precision :: real_value
        character(len=260) :: token = repeat('.', 260)

        call require(qztokenf_new(list, 'alpha 7 2.5 beta' // nul, ' ' // nul, '' // nul, &
                                  '' // nul, '' // nul, '' // nul) == 0, 'token new')
        call require(qztokenf_new(other, '' // nul, ' ' // nul, '' // nul, '' // nul, &
                                  '' // nul, '' // nul) == 0, 'second list')
        call require(qztokenf_num(list) == 4, 'num')
        call require(qztokenf_get_int(list, 1, whole) == 0 .and. whole == 7, 'get_int')
        call require(qztokenf_get_double(list, 2, real_value) == 0, 'get_double')
        call require(real_value == 2.5d0, 'the double')
        call require(qztokenf_find_type(list, 1) == 1, 'find_type')
        call require(qztokenf_get_token(list, 3, token) == 0, 'get_token')
        call require(token == 'beta' // repeat(nul, 251) // '.....', 'the token')
        call require(qztokenf_add(list, repeat('x', 260) // nul) == 0, 'add a long one')
        call require(qztokenf_get_token(list, 4, token) == 0, 'get a long token')
        call require(token == repeat('x', 255) // '.....', 'as much as there is room for')
        call require(qztokenf_get_token(list, 5, token) == -1 .and. token(1:1) == 'x', 'no token')
        call require(qztokenf_delete_token(list, 4) == 0, 'delete the long token')
        call require(qztokenf_index(list, 'beta' // nul) == 3, 'index')
        call require(qztokenf_indexn(list, 'alps' // nul, 3) == 0, 'indexn')
        call require(qztokenf_regex_compile(list) == 0, 'regex_compile')
        call require(qztokenf_regex_index(list, 'beta' // nul) == 3, 'regex_index')
        call require(qztokenf_replace(list, 3, 'Gamma' // nul) == 0, 'replace')
        call require(qztokenf_toupper(list) == 0, 'toupper')
        call require(qztokenf_tolower_token(list, 3) == 5, 'tolower_token')
        call require(text_of(list) == 'ALPHA 7 2.5 gamma', 'get_string')
        call require(qztokenf_delete_token(list, 0) == 0, 'delete_token')
        call require(text_of(list) == '7 2.5 gamma', 'the rest')
        call require(qztokenf_clear(list) == 0 .and. qztokenf_num(list) == 0, 'clear')
        call require(qztokenf_add(list, 'ab' // nul) == 0, 'add')
        call require(qztokenf_addn(%val(list), 'ab' // nul, %val(5), %val(0), %val(1)) == 0, &
                     'addn')
        call require(text_of(list) == 'ab " ab  "', 'the field')
        call require(qztokenf_delete_token(list, 1) == 0, 'delete the field')
        call require(qztokenf_copyn(other, list, 4, 0, 1) == 0, 'copyn')
        call require(qztokenf_mergen(other, list, 3, 1, 0) == 0, 'mergen')
        call require(text_of(other) == '" ab " "ab "', 'copied fields')
        call require(qztokenf_copy(other, list) == 0, 'copy')
        call require(qztokenf_merge(other, list) == 0, 'merge')
        call require(text_of(other) == 'ab ab', 'copied tokens')
        call require(qztokenf_delete(list) == 0 .and. qztokenf_delete(other) == 0, 'delete')
    end subroutine

    function text_of(list) result(text)
        use, intrinsic :: iso_c_binding, only: c_f_pointer
        integer, intent(in) :: list
        character(len=:), allocatable :: text
        character(len=200), pointer :: found
        type(c_ptr) :: memory

        memory = qztokenf_get_string(list)
        call c_f_pointer(memory, found)
        text = found(:int(strlen(memory)))
        call free(memory)
    end function

    subroutine files
        character(len=800) :: path, with_cwd
        integer :: status

        call qzfilef_initialize(0, status)
        call require(status == 0, 'initialize')
        call qzfilef_path_clear(status)
        call require(status == 0, 'path_clear')
        call qzfilef_path_set('.', status)
        call qzfilef_path_add('a/b   ', status)
        call require(status == 0, 'path_add')
        call qzfilef_path_get(path, status)
        call require(status == 0 .and. path == '.:a\b', 'path_get')
        call qzfilef_path_add_cwd(status)
        call qzfilef_path_get(with_cwd, status)
        call require(len_trim(with_cwd) > len_trim(path) + 1, 'path_add_cwd')
        call qzfilef_path_add_home(status)
        call qzfilef_path_get(path, status)
        call require(len_trim(path) > len_trim(with_cwd) + 1, 'path_add_home')

        call write_dos_line
        call qzfilef_exists('plain_calls.txt  ', 0, status)
        call require(status == 0, 'exists')
        call qzfilef_find('plain_calls.txt', 0, path, status)
        call require(status == 0 .and. path == '.\plain_calls.txt', 'find')
        call qzfilef_dos_to_unix('plain_calls.txt', status)
        call require(status == 0 .and. bytes() == 2, 'dos_to_unix')
        call write_dos_line
        call qzfilef_dos_to_unix_register('plain_calls.txt', status)
        call require(status == 0 .and. bytes() == 3, 'dos_to_unix_register')
        call qzfilef_dos_to_unix_convert(status)
        call require(status == 0 .and. bytes() == 2, 'dos_to_unix_convert')
        open (21, file='plain_calls.txt')
        close (21, status='delete')

        call qzfilef_path_is_absolute('C:\a', status)
        call require(status == 0, 'path_is_absolute')
        call qzfilef_dir_expand('$QZ_NOT_SET/a', path, status)
        call require(status == 0 .and. path == '/a', 'dir_expand')
        call qzfilef_path_localize(path, status)
        call require(status == 0 .and. path == '\a', 'path_localize')
    end subroutine

    subroutine write_dos_line
        open (21, file='plain_calls.txt', status='replace', access='stream')
        write (21) 'x' // achar(13) // achar(10)
        close (21)
    end subroutine

    integer function bytes()
        inquire (file='plain_calls.txt', size=bytes)
    end function
end program
