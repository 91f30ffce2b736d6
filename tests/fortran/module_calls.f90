! What a program gets from the module beyond the entry points. Ends with an error at the first wrong
! answer.
program module_calls
    use answers
    use qzfileshared
    implicit none
    character(len=*), parameter :: long_text = repeat('long ', 60) // 'end'

    call messages
    call names_and_tokens
    call stored_values
    call listings

contains

    subroutine messages
        integer :: id, status, unit, other
        character(len=400) :: line

        unit = qz_free_unit()
        call require(unit >= 0, 'a unit that is no silence')
        open (unit, file='module_calls.log', status='replace', action='readwrite')
        other = qz_free_unit()
        call require(other /= unit, 'the next unit')
        call qzerrf_new(id, status)
        call qzerrf_file(id, unit, status)
        call qz_set_prefix(id, 'a prefix of more than nineteen characters:', status)
        call require(status == 1, 'set_prefix')
        call qz_throw(id, qzerr_fatal, '100 % ' // long_text // '   ')
        call qzerrf_delete(id)
        rewind (unit)
        read (unit, '(a)') line
        call require(line == 'a prefix of more than nineteen characters: FATAL 100 % ' &
                     // long_text, line)
        close (unit, status='delete')
    end subroutine

    subroutine names_and_tokens
        character(len=:), allocatable :: path, word
        integer :: list, status, unit

        call qz_expand('~no_such_user/x', path, status)
        call require(status == -1 .and. path == '/x', 'expand without a home')
        call qzfilef_path_set('.', status)
        call require(qz_search_path() == '.', 'search_path')
        open (newunit=unit, file='module_calls.dat', status='replace')
        call qz_find('module_calls.dat  ', path, status)
        call require(status == 0 .and. path == '.\module_calls.dat', 'find')
        close (unit, status='delete')
        call qz_find('module_calls.dat', path, status, directory=.true.)
        call require(status == -1 .and. len(path) == 0, 'find no directory')

        call qz_split('a,"b c" ' // long_text, list, status, pairs='""')
        call require(status == 0 .and. qztokenf_num(list) == 63, 'split')
        word = qz_token(list, 1)
        call require(len(word) == 3 .and. word == 'b c', 'a quoted token')
        status = qztokenf_replace(list, 1, long_text // achar(0))
        word = qz_token(list, 1)
        call require(word == long_text .and. len(word) == len(long_text), 'a long token')
        call require(qz_token(list, 99) == '', 'no token')
        status = qztokenf_delete(list)
    end subroutine

    subroutine stored_values
        type(qz_preferences) :: preferences
        integer :: status, whole
        double precision :: number
        logical :: flag
        character(len=:), allocatable :: text

        call preferences%open(99, status)
        call require(status /= 0, 'no product')
        call preferences%open(qzpref_korvel, status)
        call require(status == 0, 'open')
        call preferences%set('solver/steps', 12, status)
        call require(status == 0, 'set a whole number')
        call preferences%set('solver/tolerance', 1d-9, status)
        call preferences%set('solver/restart', .true., status)
        call preferences%set('solver/mesh', long_text // '  ', status)
        call preferences%set('solver/steps', 'twelve', status)
        call require(status == qzpref_failure, 'a key keeps its type')
        call preferences%sync(status)
        call require(status == 0, 'sync')
        call preferences%close
        call preferences%get('solver/steps', whole, status)
        call require(status /= 0, 'closed')

        call preferences%open(qzpref_korvel, status)
        call require(index(preferences%file(), 'Korvel') > 0, 'file')
        whole = -1
        call preferences%get('solver/none', whole, status)
        call require(status == qzpref_key_not_found .and. whole == -1, 'the default stays')
        call preferences%get('solver/steps', whole, status)
        call require(status == 0 .and. whole == 12, 'a whole number')
        call preferences%get('solver/tolerance', number, status)
        call require(status == 0 .and. number == 1d-9, 'a real number')
        call preferences%get('solver/restart', flag, status)
        call require(status == 0 .and. flag, 'a flag')
        call preferences%get('solver/mesh', text, status)
        call require(status == 0 .and. text == long_text, 'a text')
        call require(len(text) == len(long_text), 'its blanks')
        call require(preferences%type_of('solver/restart') == qzpref_type_bool, 'type_of')
        call preferences%close
    end subroutine

    subroutine listings
        type(qz_preferences) :: preferences
        type(qz_text), allocatable :: names(:), texts(:)
        integer, allocatable :: wholes(:)
        double precision, allocatable :: numbers(:)
        logical, allocatable :: flags(:)
        integer :: status

        call preferences%open(qzpref_korvel, status)
        call preferences%begin_group('outer', status)
        call preferences%begin_group('inner', status)
        call preferences%list('none', names, wholes, status)
        call require(status == qzpref_key_not_found .and. size(wholes) == 0, 'an empty listing')
        call require(preferences%group() == 'outer/inner', 'the groups after it')
        call preferences%begin_platform
        call preferences%set('n', 3, status)
        call preferences%end_platform
        call preferences%list('1 is no name', names, wholes, status)
        call require(preferences%group() == 'outer/inner', 'the groups after a wrong name')
        call require(size(names) == 1 .and. names(1)%text == 'n' .and. wholes(1) == 3, 'for here')
        call preferences%end_group
        call preferences%end_group

        call preferences%list('solver', names, wholes, status)
        call require(names(1)%text == 'steps' .and. wholes(1) == 12, 'whole numbers')
        call preferences%list('solver', names, numbers, status)
        call require(names(1)%text == 'tolerance' .and. numbers(1) == 1d-9, 'real numbers')
        call preferences%list('solver', names, flags, status)
        call require(names(1)%text == 'restart' .and. flags(1), 'flags')
        call preferences%list('solver', names, texts, status)
        call require(names(1)%text == 'mesh' .and. texts(1)%text == long_text, 'texts')
        call preferences%subgroups(names, 0)
        call require(size(names) == 3 .and. names(2)%text == 'solver', 'subgroups')
        call require(preferences%remove('solver/steps', qzpref_type_int) == 1, 'remove a value')
        call require(preferences%remove('solver', qzpref_type_none) == 3, 'remove a group')
        call preferences%close
    end subroutine
end program
